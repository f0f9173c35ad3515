#include "trial.h"

#include "evaluator.h"
#include "visit.h"

#include "design/src/design_database.h"
#include "platform/file.h"
#include "storage/src/database_file.h"
#include "storage/src/format.h"
#include "tech/src/tech_database.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

namespace fuzz {

namespace impl = oa::impl;
using impl::DatabaseFileKind;

namespace {

oa::oaScalarName nameOf(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

oa::oaDesign* openDesign(char mode) {
    return oa::oaDesign::open(nameOf("lib"), nameOf("cell"), nameOf("layout"),
                              oa::oaViewType::get(oa::oacMaskLayout), mode);
}

[[noreturn]] void fail(const std::string& what) {
    std::cerr << "fuzz: " << what << std::endl;
    std::abort();
}

void requireSame(std::uint64_t before, std::uint64_t after) {
    if (before != after)
        fail("a database is another one after it was saved");
}

void writeFile(const std::string& path, std::span<const std::byte> bytes) {
    platform::File file(path, platform::OpenMode::write);
    file.write(bytes.data(), bytes.size());
    file.close();
}

/// What the header says; a kind that nobody reads for anything without one.
DatabaseFileKind kindOf(std::span<const std::byte> bytes) {
    impl::FileHeader header;
    if (bytes.size() >= sizeof(header))
        std::memcpy(&header, bytes.data(), sizeof(header));
    return DatabaseFileKind(header.kind);
}

/// Whether the reader takes the bytes. Cheap, as no file is made for what it refuses.
template <class Content>
bool isReadable(std::span<const std::byte> bytes, DatabaseFileKind kind) {
    Content content(0);
    try {
        impl::readDatabaseBytes("fuzzed", bytes, kind, content);
        return true;
    } catch (const oa::oaException&) {
        return false;
    }
}

/// Calls `open`, which refuses unsound files and must say why; tells `refusal` of that.
template <class Open>
auto openedOrNull(Open open, std::string* refusal = nullptr) -> decltype(open()) {
    try {
        return open();
    } catch (const oa::oaException& error) {
        if (error.getMsgId() != oa::oacDatabaseFileDamaged)
            throw;
        if (refusal)
            *refusal = static_cast<const oa::oaChar*>(error.getMsg());
        return nullptr;
    }
}

/// Puts an empty technology back. Designs look into the technology of their library: later inputs
/// must not meet an earlier one.
struct TechGuard {
    const std::string path;
    const std::string& empty;
    ~TechGuard() { writeFile(path, std::as_bytes(std::span(empty))); }
};

/// The technology of a library with definitions of vias, while it lives: nothing of them is on
/// disk.
class WithVias {
public:
    explicit WithVias(oa::oaLib* lib) : tech_(oa::oaTech::open(lib, 'a')) { defineVias(tech_); }
    ~WithVias() { tech_->purge(); }
    WithVias(const WithVias&) = delete;
    WithVias& operator=(const WithVias&) = delete;

private:
    oa::oaTech* tech_;
};

} // namespace

Trial::Trial(const std::string& directory) : directory_(directory) {
    oa::oaDesignInit();
    makeDefinitions();
    makeEvaluator();
    lib_ = oa::oaLib::create(nameOf("lib"), directory_.c_str());
    lib_->getAccess(oa::oacWriteLibAccess);
    oa::oaDesign* design = openDesign('w');
    design->save();
    design->purge();
    oa::oaTech* tech = oa::oaTech::create(lib_);
    tech->save();
    tech->purge();
    emptyTech_ = platform::readFile(techPath());
}

Trial::~Trial() {
    lib_->close();
}

bool Trial::run(std::span<const std::byte> bytes) {
    try {
        const DatabaseFileKind kind = kindOf(bytes);
        if (kind == DatabaseFileKind::Technology)
            return isReadable<impl::TechDatabase>(bytes, kind) && runTech(bytes);
        return isReadable<impl::DesignDatabase>(bytes, DatabaseFileKind::Design) &&
               runDesign(bytes);
    } catch (const oa::oaException& failure) {
        fail(std::string("a database that was accepted fails: ") +
             static_cast<const oa::oaChar*>(failure.getMsg()));
    }
}

std::string Trial::refusalOf(std::span<const std::byte> bytes) {
    std::string refusal;
    if (kindOf(bytes) == DatabaseFileKind::Technology) {
        const TechGuard guard{techPath(), emptyTech_};
        writeFile(techPath(), bytes);
        if (oa::oaTech* tech =
                openedOrNull([this] { return oa::oaTech::open(lib_, 'r'); }, &refusal))
            tech->purge();
    } else {
        writeFile(designPath(), bytes);
        if (oa::oaDesign* design = openedOrNull([] { return openDesign('r'); }, &refusal))
            design->purge();
    }
    return refusal;
}

bool Trial::runDesign(std::span<const std::byte> bytes) {
    const WithVias tech(lib_);
    writeFile(designPath(), bytes);
    oa::oaDesign* design = openedOrNull([] { return openDesign('a'); });
    if (!design)
        return false;
    const std::uint64_t digest = visitDesign(design);
    design->save();
    design->purge();

    design = openDesign('a');
    requireSame(digest, visitDesign(design));
    if (oa::oaBlock* block = design->getTopBlock())
        destroyHalf(block);
    const std::uint64_t rest = visitDesign(design);
    design->save();
    design->purge();

    design = openDesign('r');
    requireSame(rest, visitDesign(design));
    design->purge();
    return true;
}

bool Trial::runTech(std::span<const std::byte> bytes) {
    const TechGuard guard{techPath(), emptyTech_};
    writeFile(techPath(), bytes);
    oa::oaTech* tech = openedOrNull([this] { return oa::oaTech::open(lib_, 'a'); });
    if (!tech)
        return false;
    const std::uint64_t digest = visitTech(tech);
    tech->save();
    tech->purge();

    tech = oa::oaTech::open(lib_, 'r');
    requireSame(digest, visitTech(tech));
    tech->purge();
    return true;
}

std::string Trial::designFile(const std::function<void(oa::oaDesign*)>& change) {
    const WithVias tech(lib_);
    oa::oaDesign* design = openDesign('w');
    change(design);
    design->save();
    design->purge();
    return platform::readFile(designPath());
}

std::string Trial::techFile(const std::function<void(oa::oaTech*)>& change) {
    oa::oaTech::destroy(lib_);
    oa::oaTech* tech = oa::oaTech::create(lib_);
    change(tech);
    tech->save();
    tech->purge();
    return platform::readFile(techPath());
}

std::string Trial::designPath() const {
    return directory_ + "/cell/layout/layout.oa";
}

std::string Trial::techPath() const {
    return directory_ + "/tech.db";
}

} // namespace fuzz
