#include "platform/shared_module.h"

#include "platform/path.h"

#include <dlfcn.h>
#include <link.h>
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
    void* module = nullptr;
    if (::dladdr1(address, &found, &module, RTLD_DL_LINKMAP) == 0 || !found.dli_fname)
        throw std::runtime_error("no module holds this address");
    // The program itself has no name there, but the text that it was started by: a relative one
    // means nothing any more when the working directory is another.
    const bool isProgram = *static_cast<const link_map*>(module)->l_name == '\0';
    return canonicalPath(isProgram ? "/proc/self/exe" : found.dli_fname);
}

} // namespace platform
