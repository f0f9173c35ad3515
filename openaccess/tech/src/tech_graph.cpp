#include "tech/src/tech_graph.h"

#include "oa/oaTechHeader.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_database.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

void addWithRefs(oaTech* tech, std::vector<oaTech*>& graph) {
    if (std::ranges::find(graph, tech) != graph.end())
        return;
    graph.push_back(tech);
    TechDatabase& database = techDatabaseOf(tech);
    database.refs.forEach([&](std::uint32_t slot, const TechRefRecord&) {
        if (oaTech* ref = static_cast<oaTechHeader*>(database.refs.handle(slot))->getRefTech())
            addWithRefs(ref, graph);
    });
}

} // namespace

std::vector<oaTech*> graphOf(const oaTech* tech) {
    std::vector<oaTech*> graph;
    addWithRefs(const_cast<oaTech*>(tech), graph); // references lead to it as they lead to others
    return graph;
}

std::vector<oaTech*> techsAbove(const oaTech* tech) {
    std::vector<oaTech*> above;
    openTechs().forEach([&](std::uint32_t slot, const TechRecord& record) {
        auto* other = static_cast<oaTech*>(openTechs().handle(slot));
        // One that is being opened has no content yet.
        if (other == tech || !record.content || !hasRefs(other))
            return;
        const std::vector<oaTech*> graph = graphOf(other);
        if (std::ranges::find(graph, tech) != graph.end())
            above.push_back(other);
    });
    return above;
}

bool hasRefs(const oaTech* tech) {
    return techDatabaseOf(tech).refs.live() > 0;
}

} // namespace OpenAccess_4::impl
