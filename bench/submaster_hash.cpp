// Goal: the identity of a submaster with 20 parameters, against OpenSSL's SHA-256 over the bytes
// that stand for it, which it finds ready.

#include "design_library.h"
#include "measure.h"
#include "scratch_directory.h"

#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <openssl/evp.h>
#include <openssl/sha.h>

#include <cstring>
#include <optional>

namespace {

using bench::measure;
using bench::require;

// One measurement is of so many, that a clock can tell how long they take.
constexpr int kTimes = 10'000;

std::optional<bench::DesignLibrary> library;
oa::oaDesign* design = nullptr;
std::string ready;
std::string expected;

oa::oaParam truth(const char* name, bool value) {
    oa::oaParam param;
    param.setName(name);
    param.setBooleanVal(value);
    return param;
}

oa::oaParam text(const char* name, const char* value) {
    return {name, oa::oaString(value)};
}

/// In the order in which somebody may think of them.
std::vector<oa::oaParam> makeParams() {
    return {{"turns", 4.5},
            {"width", 12.0},
            {"spacing", 2.5},
            {"diameter", 120.0},
            {"layer", 31},
            {"purpose", 0},
            {"sides", 8},
            {"fingers", 2},
            text("model", "ind_m"),
            text("net", "gnd!"),
            {"overlap", 1.5},
            {"guard", 40.0},
            truth("shield", true),
            truth("tapped", false),
            {"rotation", 90},
            {"viaRows", 6},
            {"thickness", 3.25},
            {"resistivity", 0.0172},
            text("metal", "top_metal_2"),
            text("comment", "filter of the 5 GHz transmitter")};
}

template <class Number>
void append(std::string& bytes, Number number) {
    char place[sizeof(number)];
    std::memcpy(place, &number, sizeof(number));
    bytes.append(place, sizeof(number));
}

std::string nameOf(const oa::oaParam& param) {
    oa::oaString name;
    param.getName(name);
    return static_cast<const char*>(name);
}

/// The bytes by hand, for the anchor.
std::string bytesOf(std::vector<oa::oaParam> params) {
    std::sort(params.begin(), params.end(),
              [](const auto& a, const auto& b) { return nameOf(a) < nameOf(b); });
    std::string bytes("bench\0inductor\0layout\0", 22);
    append(bytes, std::uint32_t(params.size()));
    for (const oa::oaParam& param : params) {
        bytes += nameOf(param);
        bytes += '\0';
        bytes += char(param.getType());
        if (param.getType() == oa::oacDoubleParamType)
            append(bytes, param.getDoubleVal());
        else if (param.getType() == oa::oacIntParamType)
            append(bytes, param.getIntVal());
        else if (param.getType() == oa::oacBooleanParamType)
            bytes += char(param.getBooleanVal());
        else
            bytes.append(param.getStringVal(), std::strlen(param.getStringVal()) + 1);
    }
    return bytes;
}

using Digest = std::array<unsigned char, SHA256_DIGEST_LENGTH>;

std::string hexadecimal(const Digest& digest) {
    std::string digits;
    for (const unsigned char byte : digest) {
        digits += "0123456789abcdef"[byte >> 4];
        digits += "0123456789abcdef"[byte & 15];
    }
    return digits;
}

void identityHash(benchmark::State& state) {
    std::string hash;
    measure(
        state, [&] { hash = ovalis::calculateSubmasterIdHash(design); },
        [&] {
            for (int i = 0; i < kTimes; ++i)
                benchmark::DoNotOptimize(hash = ovalis::calculateSubmasterIdHash(design));
        },
        [&] { require(hash, expected); });
}

template <class Hash>
void runOpenssl(benchmark::State& state, Hash hash) {
    Digest digest;
    measure(
        state, [&] { hash(digest); },
        [&] {
            for (int i = 0; i < kTimes; ++i) {
                hash(digest);
                benchmark::DoNotOptimize(digest);
            }
        },
        [&] { require(hexadecimal(digest), expected); });
}

const unsigned char* readyBytes() {
    return reinterpret_cast<const unsigned char*>(ready.data());
}

void opensslOneShot(benchmark::State& state) {
    runOpenssl(state, [](Digest& digest) { SHA256(readyBytes(), ready.size(), digest.data()); });
}

/// The algorithm is looked up once, before the clock runs.
void opensslFetched(benchmark::State& state) {
    EVP_MD* algorithm = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    EVP_MD_CTX* context = EVP_MD_CTX_new();
    runOpenssl(state, [&](Digest& digest) {
        EVP_DigestInit_ex2(context, algorithm, nullptr);
        EVP_DigestUpdate(context, readyBytes(), ready.size());
        EVP_DigestFinal_ex(context, digest.data(), nullptr);
    });
    EVP_MD_CTX_free(context);
    EVP_MD_free(algorithm);
}

BENCHMARK(identityHash)->Apply(bench::once);
BENCHMARK(opensslOneShot)->Apply(bench::once);
BENCHMARK(opensslFetched)->Apply(bench::once);

/// The submaster for these parameters of a pcell whose first two have other defaults. It has no
/// content, for there is no cache.
oa::oaDesign* submasterOf(oa::oaDesign* master, const std::vector<oa::oaParam>& params) {
    std::vector<oa::oaParam> defaults = params;
    defaults[0].setDoubleVal(1);
    defaults[1].setDoubleVal(1);
    master->defineSuperMaster(oa::oaPcellLink::getPcellDef("PSNPcell"),
                              {defaults.data(), oa::oaUInt4(defaults.size())});
    oa::oaScalarName lib;
    oa::oaScalarName cell;
    oa::oaScalarName view;
    master->getLibName(lib);
    master->getCellName(cell);
    master->getViewName(view);
    oa::oaDesign::open(lib, cell, view, oa::oaParamArray(params.data(), 2));
    oa::oaIter<oa::oaDesign> made(master->getSubMasters());
    return made.getNext();
}

void makeSubmaster() {
    const std::vector<oa::oaParam> params = makeParams();
    design = submasterOf(library->create("inductor"), params);
    ready = bytesOf(params);
    require(ready.size(), std::size_t(339));
    Digest digest;
    SHA256(readyBytes(), ready.size(), digest.data());
    expected = hexadecimal(digest);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    ovalis::initOa();
    const bench::ScratchDirectory directory;
    library.emplace(directory / "library");
    makeSubmaster();
    benchmark::RunSpecifiedBenchmarks();
    design->getSuperMaster()->purge();
    library.reset();
}
