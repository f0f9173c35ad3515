#pragma once

#include "base/src/string_pool.h"
#include "dm/src/definition_list.h"
#include "dm/src/library_finder.h"

#include <set>
#include <string>
#include <vector>

namespace OpenAccess_4::impl {

/// Tells the observers of library definition lists what is wrong in a line of a list.
void warn(const DefinitionList& list, std::uint32_t line, const std::string& text,
          oaLibDefListWarningTypeEnum type);
/// The same for what is wrong within one file.
void warnOfContent(const DefinitionList& list);

/// Follows a list with all that it includes and opens the libraries that are defined in the end.
///
/// A list that is met again is not entered again: what it says has been taken already.
class DefinitionOpening {
public:
    /// Reads what the list includes and raises every warning but those of the list's own text.
    explicit DefinitionOpening(std::shared_ptr<DefinitionList> list);

    void openLibraries();

private:
    struct Frame {
        std::shared_ptr<DefinitionList> list;
        std::shared_ptr<DefinitionContent> content;
        std::size_t next = 0;
    };
    struct Library {
        const Frame* from = nullptr; // null when the name is not defined
        std::uint32_t member = kNone;
        std::uint32_t settings = kNone;
    };
    struct Settings {
        std::string writePath;
        oaLibModeEnum mode = oacSharedLibMode;
    };

    void enter(std::shared_ptr<DefinitionList> list);
    void follow(Frame& frame, const DefinitionStatement& statement);
    void define(Frame& frame, std::uint32_t member);
    void include(Frame& frame, std::uint32_t member);
    void assign(Frame& frame, const DefinitionStatement& statement);
    Library& library(std::string_view name);

    void open(const Library& library);
    void openAt(const Library& library, const std::string& path);
    std::string writePathOf(const Library& library) const;

    std::vector<std::unique_ptr<Frame>> frames_; // all that were entered
    std::vector<Frame*> walking_;
    std::set<const DefinitionList*> entered_;
    StringPool names_;
    std::vector<Library> libraries_; // by name
    std::vector<StringId> order_;
    std::vector<Settings> settings_;
    std::string temporaryRoot_;
    LibraryFinder finder_;
    bool syntaxErrors_ = false;
};

} // namespace OpenAccess_4::impl
