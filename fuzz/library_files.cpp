#include "library_files.h"

#include "digest.h"
#include "reseal.h"
#include "visit.h"

#include "platform/file.h"
#include "support/temporary_directory.h"

#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace fuzz {

namespace {

using Attributes = std::vector<std::pair<std::string, std::string>>;

void require(bool holds, const char* what) {
    if (holds)
        return;
    std::cerr << "fuzz: " << what << std::endl;
    std::abort();
}

oa::oaScalarName nameOf(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

std::string textOf(const oa::oaString& text) {
    return static_cast<const oa::oaChar*>(text);
}

/// A library with the cell view "cell/view", closed while the fuzzer changes it.
class Place {
public:
    Place() {
        oa::oaDesignInit();
        makeDefinitions();
        oa::oaLib* lib = oa::oaLib::create(nameOf("fuzzed"), directory().c_str());
        lib->getAccess(oa::oacWriteLibAccess);
        oa::oaCellView::get(lib, nameOf("cell"), nameOf("view"),
                            oa::oaViewType::get(oa::oacMaskLayout));
        lib->close();
    }

    std::string directory() const { return scratch_.str() + "/lib"; }
    std::string path(const char* name) const { return directory() + "/" + name; }

    void put(const char* name, std::span<const std::byte> input) const {
        platform::File file(path(name), platform::OpenMode::write);
        file.write(input.data(), input.size());
        file.close();
    }

private:
    ovalis::test::TemporaryDirectory scratch_;
};

/// Fuzzers start from the same place for every input.
const Place& place() {
    static const Place only;
    return only;
}

/// The library, open for a scope.
class OpenLib {
public:
    OpenLib() : lib_(oa::oaLib::open(nameOf("fuzzed"), place().directory().c_str())) {}
    OpenLib(const OpenLib&) = delete;
    OpenLib& operator=(const OpenLib&) = delete;
    ~OpenLib() { lib_->close(); }

    oa::oaLib* operator->() const { return lib_; }
    oa::oaLib* get() const { return lib_; }

private:
    oa::oaLib* lib_;
};

/// False when `call` is refused with one of these errors, each of which must say why.
bool isAccepted(const std::vector<oa::oaUInt4>& refusals, const std::function<void()>& call) {
    try {
        call();
        return true;
    } catch (const oa::oaException& error) {
        for (const oa::oaUInt4 refusal : refusals)
            if (error.getMsgId() == refusal && !error.getMsg().isEmpty())
                return false;
        std::cerr << error.getMsg() << '\n';
        require(false, "a file is refused with the wrong error");
        return false;
    }
}

Attributes attributesOf(const oa::oaLib* lib) {
    oa::oaDMAttrArray attributes;
    lib->getAttributes(attributes);
    Attributes result;
    for (oa::oaUInt4 i = 0; i < attributes.getNumElements(); ++i)
        result.emplace_back(textOf(attributes[i].getName()), textOf(attributes[i].getValue()));
    return result;
}

Attributes readAttributes() {
    const OpenLib lib;
    require(lib->getAccess(oa::oacReadLibAccess), "a library cannot be read");
    lib->getCellViews();
    return attributesOf(lib.get());
}

void setAgain() {
    const OpenLib lib;
    if (!lib->getAccess(oa::oacWriteLibAccess))
        return; // the marker forbids it
    oa::oaDMAttrArray attributes;
    lib->getAttributes(attributes);
    lib->setAttributes(attributes);
}

void requireViewTypeSurvives(oa::oaLib* lib, const oa::oaViewType* viewType) {
    oa::oaCell* cell = oa::oaCell::get(lib, nameOf("another"));
    oa::oaCellView::get(cell, oa::oaView::get(lib, nameOf("view"), viewType));
    lib->close();
    const OpenLib again;
    again->getAccess(oa::oacWriteLibAccess);
    cell = oa::oaCell::find(again.get(), nameOf("another"));
    const oa::oaCellView* found =
        oa::oaCellView::find(again.get(), nameOf("another"), nameOf("view"));
    require(found && found->getView()->getViewType() == viewType,
            "a view type is another one after it was written");
    cell->destroy();
}

void visitCellView(const oa::oaCellView* cellView) {
    const oa::oaDMFile* primary = cellView->getPrimary();
    oa::oaString path;
    oa::oaString name;
    primary->getPath(path);
    primary->getName(name);
    const std::string full = textOf(path);
    require(platform::sameFile(platform::parentPath(full), place().path("cell/view")),
            "a primary file lies elsewhere");
    require(platform::fileName(full) == textOf(name), "a primary file has two names");
    require(primary->isPrimary(), "a primary file is none");
    require(oa::oaDMFile::find(cellView, name) == primary, "a primary file is not found");
    require(cellView->getDMFiles().includes(primary), "a primary file is not listed");
}

void visitTagged() {
    oa::oaLib* lib = oa::oaLib::open(nameOf("fuzzed"), place().directory().c_str());
    const oa::oaViewType* viewType = nullptr;
    try {
        lib->getAccess(oa::oacWriteLibAccess);
        require(lib->getCellViews().getCount() == 1, "a cell view is lost");
        const oa::oaCellView* cellView = oa::oaCellView::find(lib, nameOf("cell"), nameOf("view"));
        visitCellView(cellView);
        viewType = cellView->getView()->getViewType();
    } catch (...) {
        lib->close();
        throw;
    }
    requireViewTypeSurvives(lib, viewType);
}

std::uint64_t visitData(const oa::oaDMData* data) {
    Digest digest;
    visitObject(data, digest);
    oa::oaIter<oa::oaGroup> groups(data->getGroupsOwnedBy());
    while (const oa::oaGroup* group = groups.getNext()) {
        oa::oaString name;
        group->getName(name);
        digest.add(name);
        digest.add(group->getMembers().getCount());
        visitObject(group, digest);
    }
    return digest.value();
}

template <class Member>
void destroyEverySecond(const oa::oaCollection<Member, oa::oaObject>& collection) {
    std::vector<Member*> members;
    oa::oaIter<Member> walk(collection);
    while (Member* member = walk.getNext())
        members.push_back(member);
    for (std::size_t i = 0; i < members.size(); i += 2)
        if (members[i]->isValid())
            members[i]->destroy();
}

/// What the data on disk give; they are closed again.
std::uint64_t visitStored() {
    oa::oaDMData* data = oa::oaLibDMData::open(nameOf("fuzzed"), 'r');
    const std::uint64_t digest = visitData(data);
    data->purge();
    return digest;
}

bool runData(std::span<const std::byte> input) {
    place().put("data.dm", input);
    const OpenLib lib;
    oa::oaDMData* data = nullptr;
    if (!isAccepted({oa::oacDatabaseFileDamaged, oa::oacDatabaseFileNotRead},
                    [&] { data = oa::oaLibDMData::open(nameOf("fuzzed"), 'a'); }))
        return false;
    const std::uint64_t digest = visitData(data);
    data->save();
    require(visitData(data) == digest, "data are others after they were saved");
    data->purge();
    require(visitStored() == digest, "data on disk are others than those that were saved");
    data = oa::oaLibDMData::open(nameOf("fuzzed"), 'a');
    destroyEverySecond(data->getProps());
    destroyEverySecond(data->getGroupsOwnedBy());
    const std::uint64_t rest = visitData(data);
    data->save();
    data->purge();
    require(visitStored() == rest, "half of the data are others after they were saved");
    return true;
}

} // namespace

bool tryLibraryMarker(std::span<const std::byte> input) {
    const std::string sound = platform::readFile(place().path(".oalib"));
    place().put(".oalib", input);
    require(oa::oaLib::exists(place().directory().c_str()), "a library is lost");
    const bool accepted = isAccepted({oa::oacLibCouldNotOpen}, [] {
        const Attributes attributes = readAttributes();
        setAgain();
        require(readAttributes() == attributes, "attributes are others after they were set");
    });
    place().put(".oalib", std::as_bytes(std::span(sound)));
    return accepted;
}

bool tryMasterTag(std::span<const std::byte> input) {
    place().put("cell/view/master.tag", input);
    return isAccepted({oa::oacLibFileDamaged}, visitTagged);
}

bool tryLibraryData(std::span<const std::byte> input) {
    place();
    const bool accepted = runData(input);
    runData(withChecksums(input));
    runData(laidOut(input));
    return accepted;
}

} // namespace fuzz
