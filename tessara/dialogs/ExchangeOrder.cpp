#include "tessara/dialogs/ExchangeOrder.h"

#include <algorithm>
#include <numeric>

namespace tessara {

namespace {

// Pairs of places that have no place in common can be compared in either order. So the sort is the same as
// one that takes key after key, j, into the sorted ones before it, comparing it with each from the first on.
// The new key takes the place of the first greater one; that goes on to the first key greater than itself,
// behind all its equals; and so on. So a new key comes behind its equals, and of every group of equal keys
// that are greater the first becomes the last.

/// Equal keys in their present order.
struct CEquals {
    std::vector<std::size_t> keys;
    std::size_t nSmaller = 0; ///< how many smaller keys there were when the order was right

    /// Makes the order right again: the first became the last once for each smaller key since.
    void Settle(std::size_t nSmallerNow) {
        if (keys.size() > 1) {
            const std::size_t nTurns = (nSmallerNow - nSmaller) % keys.size();
            std::rotate(keys.begin(), keys.begin() + static_cast<std::ptrdiff_t>(nTurns), keys.end());
        }
        nSmaller = nSmallerNow;
    }
};

/// How many keys of each group have come, as a tree of sums (after Fenwick).
class CCounts {
public:
    explicit CCounts(std::size_t nGroups) : m_sums(nGroups + 1) {}

    void Add(std::size_t nGroup) {
        for (std::size_t i = nGroup + 1; i < m_sums.size(); i += i & (~i + 1)) {
            ++m_sums[i];
        }
    }
    std::size_t CountBelow(std::size_t nGroup) const {
        std::size_t nCount = 0;
        for (std::size_t i = nGroup; i > 0; i &= i - 1) {
            nCount += m_sums[i];
        }
        return nCount;
    }

private:
    std::vector<std::size_t> m_sums;
};

/// For each key the number of its group of equals; groups ascend.
std::vector<std::size_t> FindGroups(const std::vector<std::string_view>& keys) {
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
    std::vector<std::size_t> groups(keys.size());
    for (std::size_t i = 1; i < order.size(); ++i) {
        groups[order[i]] = groups[order[i - 1]] + (keys[order[i - 1]] == keys[order[i]] ? 0 : 1);
    }
    return groups;
}

} // namespace

std::vector<std::size_t> ExchangeOrder(const std::vector<std::string_view>& keys) {
    const std::vector<std::size_t> groups = FindGroups(keys);
    std::vector<CEquals> equals(groups.empty() ? 0 : *std::max_element(groups.begin(), groups.end()) + 1);
    CCounts counts(equals.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        equals[groups[i]].Settle(counts.CountBelow(groups[i]));
        equals[groups[i]].keys.push_back(i);
        counts.Add(groups[i]);
    }
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < equals.size(); ++i) {
        equals[i].Settle(counts.CountBelow(i));
        order.insert(order.end(), equals[i].keys.begin(), equals[i].keys.end());
    }
    return order;
}

} // namespace tessara
