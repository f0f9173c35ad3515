#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace comparison {

/// Objects of one kind by a name that is their identity.
template <class Object>
using Named = std::map<std::string, const Object*>;

/// Which objects of two sides are the same.
template <class Object>
struct Matching {
    std::vector<std::pair<const Object*, const Object*>> both;
    std::vector<std::pair<const Object*, const Object*>> renamed;
    std::vector<const Object*> removed;
    std::vector<const Object*> added;
};

/// Objects with one name are the same.
template <class Object>
Matching<Object> matchByName(const Named<Object>& was, const Named<Object>& is) {
    Matching<Object> matching;
    for (const auto& [name, object] : was) {
        const auto other = is.find(name);
        if (other == is.end())
            matching.removed.push_back(object);
        else
            matching.both.emplace_back(object, other->second);
    }
    for (const auto& [name, object] : is)
        if (!was.contains(name))
            matching.added.push_back(object);
    return matching;
}

/// Of the objects without a partner, those that are alike in everything but their names have been
/// renamed. An empty `content` says that there is nothing to recognise an object by.
template <class Object>
void matchByContent(Matching<Object>& matching,
                    const std::function<std::string(const Object&)>& content) {
    if (matching.removed.empty() || matching.added.empty())
        return;
    std::map<std::string, std::vector<const Object*>> known;
    for (auto object = matching.added.rbegin(); object != matching.added.rend(); ++object)
        known[content(**object)].push_back(*object);
    known.erase("");
    std::vector<const Object*> left;
    std::set<const Object*> taken;
    for (const Object* object : matching.removed) {
        const auto found = known.find(content(*object));
        if (found == known.end() || found->second.empty()) {
            left.push_back(object);
            continue;
        }
        const Object* const other = found->second.back();
        found->second.pop_back();
        matching.renamed.emplace_back(object, other);
        taken.insert(other);
    }
    matching.removed.swap(left);
    std::erase_if(matching.added,
                  [&taken](const Object* object) { return taken.contains(object); });
}

} // namespace comparison
