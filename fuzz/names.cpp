#include "names.h"

#include "support/no_brokers.h"

#include <ovalis/name_space.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace fuzz {

namespace {

using namespace oa;

// Short enough to be tried in every name space; long texts say nothing new.
constexpr std::size_t kLongest = 200;

const oaNativeNS nativeNames;
const oaCdbaNS cdbaNames;
const oaUnixNS unixNames;
const oaWinNS windowsNames;
const oaVerilogNS verilogNames;
const oaVhdlNS vhdlNames;
const ovalis::NetNameNamespaceWithUTF8 netNames;

const std::vector<const oaNameSpace*> everyNameSpace = {
    &nativeNames, &cdbaNames, &unixNames, &windowsNames, &verilogNames, &vhdlNames, &netNames};

/// Those that spell names of every form.
const std::vector<const oaNameSpace*> fullNameSpaces = {&nativeNames, &cdbaNames, &verilogNames,
                                                        &vhdlNames, &netNames};

void require(bool holds) {
    if (!holds)
        std::abort();
}

/// Whether the database took it; a refusal must be one of names.
template <class Action>
bool isTaken(Action action) {
    try {
        action();
        return true;
    } catch (const oaError& error) {
        require(error.getMsgId() >= oacInvalidNameInput && error.getMsgId() <= oacHierNameInvalid);
        return false;
    }
}

template <class Name>
std::string nativeText(const Name& name) {
    oaString text;
    name.get(text);
    return std::string(text);
}

/// Writes a name in a name space and reads it again. Steps and very many repetitions cannot be
/// written everywhere.
template <class Name>
void requireBack(const Name& name, const oaNameSpace& ns) {
    oaString text;
    if (!isTaken([&] { name.get(ns, text); }))
        return;
    require(isTaken([&] { require(Name(ns, text) == name); }));
}

void tryMember(const std::string& text, const oaNameSpace& ns) {
    oaString internal;
    oaBoolean caseSensitive = 0;
    if (!isTaken([&] {
            ns.getInternalMember(text.c_str(), internal, caseSensitive, oaUInt4(text.size()));
        }))
        return;
    for (const oaNameSpace* other : everyNameSpace) {
        oaString written;
        oaUInt4 loc = 0;
        other->getMember(internal, caseSensitive, written, loc);
        require(loc == written.getLength());
        oaString again;
        other->getInternalMember(written, again, caseSensitive, loc);
        require(again == internal);
    }
}

void tryScalar(const std::string& text, const oaNameSpace& ns) {
    oaScalarName name;
    if (!isTaken([&] { name.init(ns, text.c_str()); }))
        return;
    for (const oaNameSpace* other : everyNameSpace)
        requireBack(name, *other);
}

/// A bundle that is written out can be very long.
bool isLong(const oaName& name) {
    oaUInt8 repetitions = 0;
    if (const oaBundleName* bundle = name.getBundle()) {
        for (oaUInt4 i = 0; i < bundle->getNumMembers(); ++i)
            repetitions += (*bundle)[i].getRepeat();
    }
    return repetitions > 1000;
}

bool tryName(const std::string& text, const oaNameSpace& ns) {
    oaName name;
    if (!isTaken([&] { name.init(ns, text.c_str()); }))
        return false;
    require(name.getType() == ns.getType(text.c_str()));
    for (const oaNameSpace* other : fullNameSpaces) {
        if (other != &vhdlNames || !isLong(name))
            requireBack(name, *other);
    }
    return true;
}

} // namespace

bool tryNames(std::span<const std::byte> input) {
    static const ovalis::test::NoBrokers noBrokers;
    const auto* chars = reinterpret_cast<const char*>(input.data());
    std::string text(chars, std::min(input.size(), kLongest));
    text.resize(std::min(text.find('\0'), text.size()));
    bool isReadElsewhere = false;
    for (const oaNameSpace* ns : everyNameSpace) {
        tryMember(text, *ns);
        tryScalar(text, *ns);
        const bool isRead = tryName(text, *ns);
        isReadElsewhere = isReadElsewhere || (isRead && ns != &nativeNames);
    }
    if (!text.empty()) {
        require(nativeText(oaScalarName(nativeNames, text.c_str())) == text);
        require(nativeText(oaName(nativeNames, text.c_str())) == text);
    }
    return isReadElsewhere;
}

} // namespace fuzz
