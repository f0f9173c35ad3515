#include "pcell_file.h"

#include "evaluator.h"
#include "reseal.h"
#include "visit.h"

#include "platform/file.h"
#include "storage/src/format.h"
#include "support/temporary_directory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace fuzz {

namespace {

oa::oaScalarName nameOf(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

/// Lives as long as the process: fuzzers start from the same state for every input.
class Place {
public:
    Place() {
        oa::oaDesignInit();
        makeDefinitions();
        makeEvaluator();
        lib_ = oa::oaLib::create(nameOf("cached"), (directory_.str() + "/lib").c_str());
        lib_->getAccess(oa::oacWriteLibAccess);
        oa::oaDesign* superMaster = open("cell");
        makeMaster(superMaster);
        submaster_ = oa::oaDesign::open(nameOf("cached"), nameOf("cell"), nameOf("layout"),
                                        oa::oaParamArray());
        if (!submaster_)
            fail("the submaster to read into is not evaluated");
        halved_ = open("halved");
    }
    ~Place() { lib_->close(); }

    bool run(std::span<const std::byte> bytes) {
        put(bytes);
        bool accepted = false;
        const std::size_t last = std::min(bytes.size(), kMostOffsets * kStep);
        for (std::size_t offset = 0; offset < last; offset += kStep)
            accepted = tryAt(offset) || accepted;
        return accepted;
    }

private:
    static constexpr std::size_t kStep = std::size_t(oa::impl::kSectionAlignment);
    static constexpr std::size_t kMostOffsets = 1024;

    [[noreturn]] static void fail(const char* what) {
        std::cerr << "fuzz: " << what << std::endl;
        std::abort();
    }

    static oa::oaDesign* open(const char* cell) {
        return oa::oaDesign::open(nameOf("cached"), nameOf(cell), nameOf("layout"),
                                  oa::oaViewType::get(oa::oacMaskLayout), 'w');
    }

    std::string path() const { return directory_.str() + "/submasters"; }
    std::string copyPath() const { return directory_.str() + "/copies"; }

    void put(std::span<const std::byte> bytes) const {
        platform::File file(path(), platform::OpenMode::write);
        file.write(bytes.data(), bytes.size());
        file.close();
    }

    bool isRead(oa::oaUInt8 offset) const {
        try {
            read(path(), offset, submaster_);
            return true;
        } catch (const oa::oaException&) {
            return false;
        }
    }

    bool tryAt(oa::oaUInt8 offset) const {
        if (!isRead(offset))
            return false;
        try {
            requireSameContent(submaster_, visitDesign(submaster_));
            read(path(), offset, halved_);
            if (oa::oaBlock* block = halved_->getTopBlock())
                destroyHalf(block);
            requireSameContent(halved_, visitDesign(halved_));
        } catch (const oa::oaException& failure) {
            fail(failure.getMsg());
        }
        return true;
    }

    static void read(const std::string& path, oa::oaUInt8 offset, oa::oaDesign* design) {
        oa::PcellFile file(path.c_str());
        file.open("r");
        file.read(design, offset);
    }

    /// Writes a design twice into a file and reads both again.
    void requireSameContent(oa::oaDesign* design, std::uint64_t digest) const {
        oa::PcellFile file(copyPath().c_str());
        file.open("w");
        file.append(design);
        const oa::oaUInt8 second = file.append(design);
        file.close();
        for (const oa::oaUInt8 offset : {oa::oaUInt8(0), second}) {
            read(copyPath(), offset, design);
            if (visitDesign(design) != digest)
                fail("a submaster is another one after it was written");
        }
    }

    ovalis::test::TemporaryDirectory directory_;
    oa::oaLib* lib_ = nullptr;
    oa::oaDesign* submaster_ = nullptr;
    oa::oaDesign* halved_ = nullptr;
};

/// The input with the first of its submasters put through `change`.
template <class Change>
Bytes withFirst(std::span<const std::byte> input, Change change) {
    oa::impl::FileHeader header;
    if (input.size() < sizeof(header))
        return {};
    std::memcpy(&header, input.data(), sizeof(header));
    const std::size_t size =
        std::size_t(std::clamp<std::uint64_t>(header.fileSize, sizeof(header), input.size()));
    Bytes changed = change(input.first(size));
    const std::size_t next = std::size_t(oa::impl::alignSection(size));
    if (next < input.size()) {
        changed.resize(std::size_t(oa::impl::alignSection(changed.size())));
        const auto rest = input.subspan(next);
        changed.insert(changed.end(), rest.begin(), rest.end());
    }
    return changed;
}

} // namespace

bool tryPcellFile(std::span<const std::byte> input) {
    static Place place;
    const bool accepted = place.run(input);
    place.run(withFirst(input, withChecksums));
    place.run(withFirst(input, laidOut));
    return accepted;
}

} // namespace fuzz
