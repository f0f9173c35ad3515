#include "dm/src/definition_list.h"
#include "dm/src/library.h"
#include "dm/src/name_text.h"
#include "oa/oaDMException.h"
#include "oa/oaLibDefList.h"

#include "platform/path.h"

#include <algorithm>

namespace OpenAccess_4 {

using namespace impl;

namespace {

/// True when two texts are one path, with whichever separators.
bool isSpelling(std::string_view path, std::string_view other) {
    return std::equal(path.begin(), path.end(), other.begin(), other.end(), [](char a, char b) {
        return a == b || (platform::isPathSeparator(a) && platform::isPathSeparator(b));
    });
}

std::string text(const oaString& string) {
    return static_cast<const oaChar*>(string);
}

DefinitionRecord& recordOfMember(const oaLibDefListMem* member) {
    return recordOf<DefinitionRecord>(member);
}

void requireWritable(const std::string& field) {
    if (!isWritableField(field))
        throw oaDMError(oacInvalidLibDefText, field.c_str());
}

/// The slot of a member of that list.
std::uint32_t slotIn(const DefinitionContent& content, const oaLibDefListMem* member) {
    if (&contentOf(member) != &content)
        throw oaDMError(oacLibDefListMemNotInList, content.list().fullPath().c_str());
    return slotOf(member);
}

std::uint32_t followingSlot(const DefinitionContent& content, const oaLibDefListMem* following) {
    return following ? slotIn(content, following) : kNone;
}

std::vector<oaDMAttr> assignmentsOf(const oaString& writePath, oaLibMode mode,
                                    const oaDMAttrArray* attributes) {
    std::vector<oaDMAttr> assigned;
    if (!writePath.isEmpty())
        assigned.emplace_back("writePath", writePath);
    if (mode != oacSharedLibMode)
        assigned.emplace_back("libMode", mode.getName());
    for (oaUInt4 i = 0; attributes && i < attributes->getNumElements(); ++i)
        assigned.push_back((*attributes)[i]);
    for (const oaDMAttr& each : assigned) {
        requireWritable(text(each.getName()));
        requireWritable(text(each.getValue()));
    }
    return assigned;
}

oaString asString(std::string_view text) {
    return oaString(text.data(), oaUInt4(text.size()));
}

} // namespace

oaLibDefList* oaLibDefListMem::getList() const {
    return contentOf(this).list().handle();
}

void oaLibDefListMem::destroy() {
    DefinitionContent& content = contentOf(this);
    content.list().edit();
    content.destroy(slotOf(this));
}

void oaLibDefListMem::moveAfter(oaLibDefListMem* member) {
    DefinitionContent& content = contentOf(this);
    const std::uint32_t other = slotIn(content, member);
    content.list().edit();
    content.moveBehind(slotOf(this), other);
}

void oaLibDefListMem::moveToFirst() {
    DefinitionContent& content = contentOf(this);
    content.list().edit();
    content.moveBehind(slotOf(this), kNone);
}

void oaLibDefListMem::moveToLast() {
    DefinitionContent& content = contentOf(this);
    content.list().edit();
    content.moveToEnd(slotOf(this));
}

oaLibDef* oaLibDef::create(oaLibDefList* defList, const oaScalarName& libName,
                           const oaString& libPath, const oaString& writePath, oaLibMode libMode,
                           const oaDMAttrArray* libAttrs, oaLibDefListMem* followingMem) {
    DefinitionList& list = listOf(defList);
    DefinitionContent& content = list.content();
    const std::string name = nativeText(libName, "library");
    if (content.findDefinition(name) != kNone)
        throw oaDMError(oacLibDefExists, list.fullPath().c_str(), name.c_str());
    requireWritable(name);
    requireWritable(text(libPath));
    const std::vector<oaDMAttr> assigned = assignmentsOf(writePath, libMode, libAttrs);
    const std::uint32_t following = followingSlot(content, followingMem);
    list.edit();
    oaLibDefListMem* made = content.addDefinition(name, text(libPath), following);
    for (const oaDMAttr& each : assigned)
        content.addAssignment(slotOf(made), text(each.getName()), text(each.getValue()));
    return static_cast<oaLibDef*>(made);
}

oaLibDef* oaLibDef::find(const oaLibDefList* defList, const oaScalarName& libName) {
    DefinitionContent& content = listOf(defList).content();
    const std::uint32_t slot = content.findDefinition(nativeText(libName, "library"));
    return slot == kNone ? nullptr : static_cast<oaLibDef*>(content.members().handle(slot));
}

void oaLibDef::getLibName(oaScalarName& libName) const {
    assignName(libName, std::string(recordOfMember(this).name));
}

void oaLibDef::getLibPath(oaString& path) const {
    path = asString(recordOfMember(this).path);
}

void oaLibDef::getLibWritePath(oaString& writePath) const {
    const LibrarySettings* settings = contentOf(this).settingsOf(recordOfMember(this));
    writePath = settings ? asString(settings->writePath) : oaString();
}

oaLibMode oaLibDef::getLibMode() const {
    const LibrarySettings* settings = contentOf(this).settingsOf(recordOfMember(this));
    return settings ? settings->mode : oacSharedLibMode;
}

void oaLibDef::getLibAttributes(oaDMAttrArray& attrs) const {
    const LibrarySettings* settings = contentOf(this).settingsOf(recordOfMember(this));
    attrs.setNumElements(0);
    if (settings)
        for (const auto& [name, value] : settings->attributes)
            attrs.append(oaDMAttr(asString(name), asString(value)));
}

void oaLibDef::setLibPath(const oaString& path) {
    requireWritable(text(path));
    DefinitionContent& content = contentOf(this);
    content.list().edit();
    content.setPath(slotOf(this), text(path));
}

void oaLibDef::setLibWritePath(const oaString& writePath) {
    if (writePath.isEmpty())
        removeLibAttribute("writePath");
    else
        addLibAttribute("writePath", writePath);
}

void oaLibDef::setLibMode(oaLibMode mode) {
    if (mode != getLibMode())
        addLibAttribute("libMode", mode.getName());
}

void oaLibDef::addLibAttribute(const oaString& name, const oaString& value) {
    requireWritable(text(name));
    requireWritable(text(value));
    bool known = true;
    if (isModeAttribute(text(name)) && (modeNamed(text(value), known), !known))
        throw oaDMError(oacInvalidLibDefText, static_cast<const oaChar*>(value));
    DefinitionContent& content = contentOf(this);
    content.list().edit();
    content.setAssignment(slotOf(this), text(name), text(value));
}

void oaLibDef::removeLibAttribute(const oaString& name) {
    DefinitionContent& content = contentOf(this);
    content.list().edit();
    content.removeAssignments(slotOf(this), text(name));
}

oaLibDefListRef* oaLibDefListRef::create(oaLibDefList* libList, const oaString& refListPath,
                                         oaLibDefListMem* followingMem) {
    DefinitionList& list = listOf(libList);
    DefinitionContent& content = list.content();
    if (find(libList, refListPath))
        throw oaDMError(oacLibDefListRefExists, list.fullPath().c_str(),
                        static_cast<const oaChar*>(refListPath));
    requireWritable(text(refListPath));
    const std::uint32_t following = followingSlot(content, followingMem);
    list.edit();
    return static_cast<oaLibDefListRef*>(content.addReference(text(refListPath), following));
}

oaLibDefListRef* oaLibDefListRef::find(const oaLibDefList* defList, const oaString& refListPath) {
    const DefinitionList& list = listOf(defList);
    std::string wanted;
    expandVariables(text(refListPath), wanted);
    oaIter<oaLibDefListMem> walk(defList->getMembers());
    while (oaLibDefListMem* member = walk.getNext()) {
        const DefinitionRecord& record = recordOfMember(member);
        if (record.isReference &&
            (isSpelling(record.path, wanted) || isSpelling(list.resolve(record.path), wanted)))
            return static_cast<oaLibDefListRef*>(member);
    }
    return nullptr;
}

void oaLibDefListRef::getRefListPath(oaString& path) const {
    path = contentOf(this).list().resolve(recordOfMember(this).path).c_str();
}

} // namespace OpenAccess_4
