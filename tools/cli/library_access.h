#pragma once

#include <string>

#include <ovalis/library.h>

#include "cli/commands.h"

namespace cli {

/// Runs a body that calls the database itself, turning its exceptions into `ovalis::Exception`.
template <class Body>
auto calling(Body&& body) -> decltype(body()) {
    try {
        return body();
    } catch (const oa::oaException& error) {
        throw ovalis::Exception(error);
    } catch (const oaCommon::IException& error) {
        throw ovalis::Exception(error);
    }
}

/// The directory without separators at its end.
std::string directoryOf(const LibraryOptions& library);

/// The given name, else the last part of the directory's absolute path.
std::string nameOf(const LibraryOptions& library);

/// Opens a library for reading.
/// @throws std::runtime_error  there is none, or its access was refused.
ovalis::LibPtr openForReading(const LibraryOptions& library);

/// Throws the library's own text when the path has blanks or tabs.
void requireUsablePath(const std::string& path);

/// An open design that is closed at scope end, unsaved changes and all.
class OpenDesign {
public:
    explicit OpenDesign(oa::oaDesign* design) : design_(design) {}
    OpenDesign(const OpenDesign&) = delete;
    OpenDesign& operator=(const OpenDesign&) = delete;
    ~OpenDesign();

    oa::oaDesign& operator*() const { return *design_; }
    oa::oaDesign* operator->() const { return design_; }

private:
    oa::oaDesign* design_;
};

} // namespace cli
