#include "comparison/groups.h"

#include <algorithm>
#include <map>
#include <vector>

#include "comparison/attachments.h"
#include "comparison/matching.h"
#include "comparison/text.h"

namespace comparison {
namespace {

/// The members in their order.
std::string membersText(const oa::oaGroup& group, const Labels& labels) {
    std::string text;
    oa::oaIter<oa::oaGroupMember> members(group.getMembers());
    while (const oa::oaGroupMember* member = members.getNext())
        text += (text.empty() ? "" : ", ") + labels.labelOf(*member->getObject());
    return text;
}

Fields fieldsOf(const oa::oaGroup& group, const Labels& labels) {
    Fields fields;
    fields.set("type", enumText(group.getGroupType()));
    fields.set("deleted when", enumText(group.getDeleteWhen()));
    fields.set("domain", enumText(group.getGroupDomain()));
    fields.set("ordered", yesOrNo(group.isOrdered()));
    fields.set("unique name", yesOrNo(group.isUniqueName()));
    if (const oa::oaGroupDef* def = group.getDef())
        fields.set("definition", quoted(plainNameOf(*def)));
    if (const oa::oaGroupMember* leader = group.getLeader())
        fields.set("leader", labels.labelOf(*leader->getObject()));
    oa::oaIter<oa::oaGroupMember> members(group.getMembers());
    while (const oa::oaGroupMember* member = members.getNext())
        fields.add("member " + labels.labelOf(*member->getObject()), "");
    addAttachments(fields, group);
    return fields;
}

/// By name; several of one name are numbered in the order of what they hold.
Named<oa::oaGroup> groupsOf(const oa::oaObject& owner, const Labels& labels) {
    std::map<std::string, std::vector<std::pair<std::string, const oa::oaGroup*>>> all;
    oa::oaIter<oa::oaGroup> groups(owner.getGroupsOwnedBy());
    while (const oa::oaGroup* group = groups.getNext())
        all[plainNameOf(*group)].emplace_back(textOf(fieldsOf(*group, labels)), group);
    Named<oa::oaGroup> named;
    for (auto& [name, list] : all) {
        std::sort(list.begin(), list.end());
        for (std::size_t at = 0; at < list.size(); ++at)
            named[name + '\0' + numberText(at)] = list[at].second;
    }
    return named;
}

std::string labelOf(const oa::oaGroup& group) {
    return "group " + quoted(plainNameOf(group));
}

void compareGroup(const Place& place, const oa::oaGroup& was, const oa::oaGroup& is,
                  const Labels& labels) {
    const Fields first = fieldsOf(was, labels);
    const Fields second = fieldsOf(is, labels);
    compareFields(place, labelOf(was), first, second);
    if (!was.isOrdered() || !is.isOrdered() || textOf(first) != textOf(second))
        return;
    Fields wasOrder;
    Fields isOrder;
    wasOrder.set("order", membersText(was, labels));
    isOrder.set("order", membersText(is, labels));
    compareFields(place, labelOf(was), wasOrder, isOrder);
}

} // namespace

void compareGroups(const Place& place, const oa::oaObject& was, const oa::oaObject& is,
                   Labels& labels) {
    const Matching<oa::oaGroup> groups = matchByName(groupsOf(was, labels), groupsOf(is, labels));
    for (const auto& [first, second] : groups.both)
        compareGroup(place, *first, *second, labels);
    for (const oa::oaGroup* group : groups.removed)
        place.removed(labelOf(*group));
    for (const oa::oaGroup* group : groups.added)
        place.added(labelOf(*group));
}

} // namespace comparison
