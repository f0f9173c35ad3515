#include "oa/oaException.h"
#include "oa/oaLib.h"
#include "oa/oaLibDMData.h"
#include "oa/oaName.h"
#include "oa/oaProps.h"
#include "oa/oaTechException.h"
#include "oa/oaTechObserver.h"
#include "tech/src/open_techs.h"

#include <algorithm>
#include <vector>

namespace OpenAccess_4::impl {

namespace {

using Observer = oaVersionedObserver<oaTech, 2>;

constexpr const oaChar* propertyName = "techLibName";

/// The data of a library for a scope. Data that others have open keep their mode.
class OpenData {
public:
    OpenData(const oaLib* lib, oaChar mode)
        : mode_(modeOf(lib)), data_(oaDMData::open(lib, mode)) {}
    ~OpenData() { data_->close(); }
    OpenData(const OpenData&) = delete;
    OpenData& operator=(const OpenData&) = delete;

    oaDMData* get() const { return data_; }
    void save() {
        data_->save();
        if (mode_ == 'r')
            data_->reopen('r');
    }

private:
    static oaChar modeOf(const oaLib* lib) {
        const oaDMData* data = oaDMData::find(lib);
        return data ? data->getMode() : oaChar('\0');
    }

    oaChar mode_;
    oaDMData* data_;
};

std::string nativeName(const oaScalarName& name) {
    oaString text;
    name.get(oaNativeNS(), text);
    return std::string(text);
}

} // namespace

std::string attachmentOf(const oaLib* lib) {
    if (!oaDMData::exists(lib))
        return {};
    const OpenData data(lib, 'r');
    const oaProp* prop = oaProp::find(data.get(), propertyName);
    oaString name;
    if (prop && prop->getType() == oacStringPropType)
        prop->getValue(name);
    return std::string(name);
}

const oaLib* techLibOf(const oaLib* lib) {
    std::vector<const oaLib*> seen; // attachments that were made elsewhere may go round
    while (lib && !hasOwnTech(lib)) {
        seen.push_back(lib);
        const std::string attached = attachmentOf(lib);
        lib =
            attached.empty() ? nullptr : oaLib::find(oaScalarName(oaNativeNS(), attached.c_str()));
        if (std::ranges::find(seen, lib) != seen.end())
            return nullptr;
    }
    return lib;
}

void attachTech(oaLib* lib, const oaScalarName& attachLibName) {
    const std::string name = nameOf(lib);
    const std::string attached = nativeName(attachLibName);
    if (hasOwnTech(lib))
        throw oaTechError(oacTechAlreadyExists, name.c_str());
    if (name == attached)
        throw oaTechError(oacInvalidTechAttachment, name.c_str(), attached.c_str(),
                          "it is the library itself");
    Observer::notifyPreAttachObservers(lib, attachLibName);
    OpenData data(lib, 'a');
    if (oaProp* prop = oaProp::find(data.get(), propertyName))
        prop->destroy();
    oaStringProp::create(data.get(), propertyName, attached.c_str());
    data.save();
    Observer::notifyPostAttachObservers(lib, attachLibName);
}

void detachTech(oaLib* lib) {
    if (attachmentOf(lib).empty())
        throw oaTechError(oacTechNotAttached, nameOf(lib).c_str());
    Observer::notifyPreDetachObservers(lib);
    OpenData data(lib, 'a');
    oaProp::find(data.get(), propertyName)->destroy();
    data.save();
    Observer::notifyPostDetachObservers(lib);
}

} // namespace OpenAccess_4::impl
