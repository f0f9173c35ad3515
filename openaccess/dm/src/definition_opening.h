#pragma once

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
/// Names stay in the lists, so that a hundred thousand of them cost no copies. A list that is met
/// again is not entered again: what it says has been taken already.
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
        std::string_view name;
        std::uint32_t member = kNone;
        std::uint32_t settings = kNone;
        const Frame* from = nullptr; // null when it is not defined any more
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
    struct Place {
        std::uint32_t hash = 0;
        std::uint32_t library = kNone; // kNone for free
    };

    /// Where the name stands in the index, or is to stand.
    Place& place(std::string_view name, std::uint32_t hash);
    Library* find(std::string_view name);
    void grow();

    void open(const Library& library);
    void openAt(const Library& library, const std::string& path);
    std::string writePathOf(const Library& library) const;

    std::vector<std::unique_ptr<Frame>> frames_; // all that were entered
    std::vector<Frame*> walking_;
    std::set<const DefinitionList*> entered_;
    std::vector<Library> libraries_; // in the order in which their names came
    std::vector<Place> index_;       // of libraries by name, with linear probing
    std::vector<Settings> settings_;
    std::string temporaryRoot_;
    LibraryFinder finder_;
    bool syntaxErrors_ = false;
};

} // namespace OpenAccess_4::impl
