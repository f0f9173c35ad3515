#pragma once

#include <string>

namespace platform {

/// What a shared object or DLL named `name` is called on this system: "libname.so", "name.dll".
std::string moduleFileName(const std::string& name);

/// A shared object or DLL in this process. It stays there until the process ends, as what it has
/// given out may be in use until then.
class SharedModule {
public:
    /// Loads `file`: a path, or a bare file name, which the system searches for where it searches
    /// for libraries. What is loaded already is not loaded again.
    /// @throws std::runtime_error  the system's reason
    explicit SharedModule(const std::string& file);

    /// The function that the module exports under this name, null when it does not.
    template <class Function>
    Function* function(const char* name) const {
        return reinterpret_cast<Function*>(symbol(name));
    }

private:
    using Symbol = void();

    Symbol* symbol(const char* name) const;

    void* handle_;
};

/// The path, with all links resolved, of the module that holds `address`: a function or an object
/// of it.
/// @throws std::runtime_error
std::string moduleHolding(const void* address);

} // namespace platform
