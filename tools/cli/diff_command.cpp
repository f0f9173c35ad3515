#include <memory>
#include <stdexcept>

#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "comparison/designs.h"
#include "comparison/libraries.h"
#include "evaluation/open_libraries.h"

namespace cli {
namespace {

using comparison::Difference;
using comparison::LibraryNames;
using evaluation::OpenLibraries;

/// Says what cannot be read; writing the differences is left to others.
class Findings : public comparison::Listener {
public:
    explicit Findings(Console& console) : console_(console) {}

    void differs(const Difference& difference) override {
        any_ = true;
        write(difference);
    }
    void cannotRead(const std::string& place, const std::string& reason) override {
        complete_ = false;
        console_.talk << "ovalis: " << place << ": " << reason << '\n';
    }

    virtual void finish() {}

    int status() const {
        if (!complete_)
            return failure;
        return any_ ? somethingMissing : success;
    }

protected:
    /// Nothing, unless somebody wants to read it.
    virtual void write(const Difference& difference) { static_cast<void>(difference); }

    std::ostream& out() const { return console_.out; }

private:
    Console& console_;
    bool any_ = false;
    bool complete_ = true;
};

class Lines : public Findings {
public:
    using Findings::Findings;

protected:
    void write(const Difference& difference) override { out() << textOf(difference) << '\n'; }
};

class JsonList : public Findings {
public:
    using Findings::Findings;

    void finish() override {
        out() << list_.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    }

protected:
    void write(const Difference& difference) override {
        nlohmann::ordered_json entry = {{"place", difference.place},
                                        {"object", difference.object},
                                        {"change", nameOf(difference.kind)}};
        const auto add = [&entry](const char* key, const std::string& text) {
            if (!text.empty())
                entry[key] = text;
        };
        add("attribute", difference.attribute);
        add("was", difference.was);
        add("is", difference.is);
        list_.push_back(std::move(entry));
    }

private:
    nlohmann::ordered_json list_ = nlohmann::ordered_json::array();
};

std::unique_ptr<Findings> findingsFor(const DiffOptions& options, Console& console) {
    if (options.quiet)
        return std::make_unique<Findings>(console);
    if (options.json)
        return std::make_unique<JsonList>(console);
    return std::make_unique<Lines>(console);
}

std::string nameInDatabase(const oa::oaLib& lib) {
    oa::oaString name;
    lib.getName(oa::oaNativeNS(), name);
    return ovalis::fromOa(name);
}

bool isTaken(const std::string& name) {
    return calling([&] {
        return oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), name.c_str())) != nullptr;
    });
}

/// The two libraries, open side by side.
class TwoLibraries {
public:
    TwoLibraries(const LibraryOptions& was, const LibraryOptions& is, const std::string& list)
        : libraries_(directoryOf(was), nameOf(was), list) {
        names_.was = nameInDatabase(libraries_.library());
        openSecond(is);
    }

    oa::oaLib& was() const { return libraries_.library(); }
    oa::oaLib& is() const { return *is_; }
    const LibraryNames& names() const { return names_; }

private:
    /// A copy often has the name of the other one. As no two open libraries can have one name, it
    /// is opened under another, which is not told.
    void openSecond(const LibraryOptions& is) {
        const std::string ownName = nameOf(is);
        std::string name = ownName;
        while (isTaken(name))
            name += "_2";
        is_ = &libraries_.open(directoryOf(is), name);
        const std::string openName = nameInDatabase(*is_);
        names_.is = openName == name ? ownName : openName;
    }

    OpenLibraries libraries_;
    oa::oaLib* is_ = nullptr;
    LibraryNames names_;
};

OpenDesign openView(oa::oaLib& lib, const CellViewOptions& options) {
    const std::string where = directoryOf(options.library) + ": ";
    const std::string what = options.cell + "/" + options.view;
    if (ovalis::getCellView(lib, options.cell, options.view) == nullptr)
        throw std::runtime_error(where + "no cell view \"" + what + "\"");
    try {
        return OpenDesign(ovalis::openDesign(lib, options.cell, options.view, false));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(where + what + ": " + error.what());
    }
}

void compareViews(const TwoLibraries& libraries, const CellViewOptions& was,
                  const CellViewOptions& is, Findings& findings) {
    const OpenDesign first = openView(libraries.was(), was);
    const OpenDesign second = openView(libraries.is(), is);
    const comparison::Place place(was.cell + "/" + was.view, findings);
    calling([&] {
        comparison::compareUnits(place, *first, *second);
        comparison::compareDesigns(place, *first, *second, libraries.names());
    });
}

} // namespace

int diffCommand(const DiffOptions& options, Console& console) {
    const std::unique_ptr<Findings> findings = findingsFor(options, console);
    const std::vector<std::string>& sides = options.sides;
    if (sides.size() == 2) {
        const TwoLibraries libraries({sides[0], ""}, {sides[1], ""}, options.libs);
        calling([&] {
            comparison::compareLibraries(libraries.was(), libraries.is(), libraries.names(),
                                         *findings);
        });
    } else if (sides.size() == 6) {
        const CellViewOptions was{{sides[0], ""}, sides[1], sides[2]};
        const CellViewOptions is{{sides[3], ""}, sides[4], sides[5]};
        const TwoLibraries libraries(was.library, is.library, options.libs);
        compareViews(libraries, was, is, *findings);
    } else {
        throw std::runtime_error("diff takes two libraries or two designs: DIR1 [CELL1 VIEW1] DIR2 "
                                 "[CELL2 VIEW2]");
    }
    findings->finish();
    return findings->status();
}

} // namespace cli
