#include "platform/shared_module.h"

#include "platform/path.h"

#include <dlfcn.h>
#include <stdexcept>

namespace platform {

std::string moduleFileName(const std::string& name) {
    return "lib" + name + ".so";
}

SharedModule::SharedModule(const std::string& file)
    : handle_(::dlopen(nativePath(file).c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (handle_)
        return;
    const char* const reason = ::dlerror();
    throw std::runtime_error(reason ? reason : "unknown reason");
}

SharedModule::Symbol* SharedModule::symbol(const char* name) const {
    return reinterpret_cast<Symbol*>(::dlsym(handle_, name));
}

std::string moduleHolding(const void* address) {
    Dl_info found;
    if (::dladdr(address, &found) == 0 || !found.dli_fname)
        throw std::runtime_error("no module holds this address");
    return canonicalPath(found.dli_fname);
}

} // namespace platform
