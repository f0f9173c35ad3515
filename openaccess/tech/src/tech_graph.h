#pragma once

#include "oa/oaTech.h"

#include <utility>
#include <vector>

namespace OpenAccess_4::impl {

class TechDatabase;

/// The technologies that one sees: itself, and those that its references lead to, nearer ones
/// before farther ones on each path; each once, and only open ones.
std::vector<oaTech*> graphOf(const oaTech* tech);

/// The open technologies, in the order of their opening, that see `tech` over their references.
std::vector<oaTech*> techsAbove(const oaTech* tech);

bool hasRefs(const oaTech* tech);

/// What `find(technology)` answers for the first technology of the graph that has it. With `local`
/// only the technology itself is asked.
template <class Find>
auto firstInGraph(const oaTech* tech, oaBoolean local, Find find) {
    auto found = find(tech);
    if (found || local || !hasRefs(tech))
        return found;
    const std::vector<oaTech*> graph = graphOf(tech);
    for (std::size_t i = 1; i < graph.size() && !found; ++i)
        found = find(graph[i]);
    return found;
}

} // namespace OpenAccess_4::impl
