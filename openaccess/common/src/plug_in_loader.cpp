#include "common/src/plug_in_description.h"
#include "oaCommonExceptionBase.h"
#include "oaCommonIFactory.h"
#include "oaCommonSPtr.h"
#include "platform/file.h"
#include "platform/path.h"
#include "platform/shared_module.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace oaCommon::internal {

using namespace OpenAccess_4::impl;

namespace {

using GetClassObject = long(const char*, const Guid&, void**);

/// A status of a module that makes a plug-in unusable.
class Refusal : public std::runtime_error {
public:
    Refusal(long status, const std::string& text)
        : std::runtime_error(text + " (status " + std::to_string(status) + ")"), status_(status) {}

    long status() const { return status_; }

private:
    long status_;
};

// A module beside its description needs no search by the system.
std::string moduleFile(const PlugInDescription& description) {
    const std::string name = platform::moduleFileName(description.module);
    std::string beside = platform::joinPath(platform::parentPath(description.file), name);
    return platform::isFile(beside) ? beside : name;
}

platform::SharedModule load(const std::string& module, const PlugInDescription& description) {
    try {
        return platform::SharedModule(module);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(description.file + ": the module " + module +
                                 " cannot be loaded: " + error.what());
    }
}

struct Release {
    void operator()(IFactory* factory) const { factory->release(); }
};

using FactoryReference = std::unique_ptr<IFactory, Release>;

FactoryReference factoryIn(const platform::SharedModule& loaded, const std::string& module,
                           const std::string& classId) {
    auto* const getClassObject = loaded.function<GetClassObject>("getClassObject");
    if (!getClassObject)
        throw std::runtime_error("the module " + module + " does not export getClassObject");
    void* factory = nullptr;
    const long status = getClassObject(classId.c_str(), IFactory::getId(), &factory);
    if (status != IBase::cOK || !factory)
        throw Refusal(status, "the module " + module + " has no class '" + classId + "'");
    return FactoryReference(static_cast<IFactory*>(factory));
}

void* make(IFactory& factory, const Guid& interfaceID, const std::string& module) {
    void* instance = nullptr;
    long status = IBase::cFail;
    try {
        status = factory.createInstance(nullptr, interfaceID, &instance);
    } catch (const IException& error) {
        const char* const message = error.getMsg();
        throw Refusal(error.getMsgId(),
                      "its constructor failed" + (message ? ": " + std::string(message) : ""));
    } catch (const std::exception& error) {
        throw std::runtime_error("its constructor failed: " + std::string(error.what()));
    } catch (...) {
        throw std::runtime_error("its constructor failed");
    }
    if (status == IBase::cNoInterface)
        throw Refusal(status, "the class in the module " + module +
                                  " does not have the interface that is needed");
    if (status != IBase::cOK || !instance)
        throw Refusal(status, "the module " + module + " cannot make the object");
    return instance;
}

void* instanceOf(const std::string& name, const Guid& interfaceID) {
    const PlugInDescription description = findPlugIn(name);
    const std::string module = moduleFile(description);
    const FactoryReference factory =
        factoryIn(load(module, description), module, description.classId);
    return make(*factory, interfaceID, module);
}

} // namespace

void* plugInInstance(const char* className, const Guid& interfaceID) {
    const std::string name = className ? className : "";
    const auto failure = [&](long status, const char* reason) {
        return oaPlugInError(status, ("Plug-in '" + name + "': " + reason).c_str());
    };
    try {
        return instanceOf(name, interfaceID);
    } catch (const Refusal& refusal) {
        throw failure(refusal.status(), refusal.what());
    } catch (const std::runtime_error& error) {
        throw failure(IBase::cFail, error.what());
    }
}

} // namespace oaCommon::internal
