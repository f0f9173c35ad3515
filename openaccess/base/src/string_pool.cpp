#include "base/src/string_pool.h"

#include "base/src/hash.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"

#include <limits>
#include <utility>

namespace OpenAccess_4::impl {

namespace {

std::uint32_t hashOf(std::string_view text) {
    return std::uint32_t(hashBytes(text.data(), text.size()));
}

} // namespace

StringPool::StringPool() : bytes_(1, '\0'), starts_{0, 1} {}

StringPool::StringPool(std::vector<char> bytes, std::vector<std::uint32_t> starts)
    : bytes_(std::move(bytes)), starts_(std::move(starts)) {}

bool StringPool::isSound() const {
    index();
    for (StringId id = 0; id < count(); ++id)
        if (index_[position(text(id), hashes_[id])] != id)
            return false;
    return true;
}

StringId StringPool::intern(std::string_view text) {
    if (text.empty())
        return 0;
    index();
    const std::uint32_t hash = hashOf(text);
    const std::size_t at = position(text, hash);
    if (index_[at] != kNone)
        return index_[at];
    if (bytes_.size() + text.size() + 1 > std::numeric_limits<std::uint32_t>::max())
        throw oaError(oacStringPoolFull);
    const StringId id = count();
    bytes_.insert(bytes_.end(), text.begin(), text.end());
    bytes_.push_back('\0');
    starts_.push_back(std::uint32_t(bytes_.size()));
    hashes_.push_back(hash);
    index_[at] = id;
    if (std::size_t(count()) * 4 > index_.size() * 3)
        growIndex();
    return id;
}

StringId StringPool::find(std::string_view text) const {
    if (text.empty())
        return 0;
    index();
    return index_[position(text, hashOf(text))];
}

std::size_t StringPool::position(std::string_view text, std::uint32_t hash) const {
    const std::size_t mask = index_.size() - 1;
    std::size_t at = hash & mask;
    while (index_[at] != kNone && (hashes_[index_[at]] != hash || this->text(index_[at]) != text))
        at = (at + 1) & mask;
    return at;
}

void StringPool::index() const {
    if (!index_.empty())
        return;
    hashes_.resize(count());
    for (StringId id = 0; id < count(); ++id)
        hashes_[id] = hashOf(text(id));
    growIndex();
}

void StringPool::growIndex() const {
    std::size_t size = 64;
    while (size < std::size_t(count()) * 2)
        size *= 2;
    index_.assign(size, kNone);
    for (StringId id = 0; id < count(); ++id) {
        std::size_t at = hashes_[id] & (size - 1);
        while (index_[at] != kNone)
            at = (at + 1) & (size - 1);
        index_[at] = id;
    }
}

} // namespace OpenAccess_4::impl
