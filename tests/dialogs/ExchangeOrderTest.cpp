#include "tessara/dialogs/ExchangeOrder.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <string>

namespace tessara {

namespace {

std::vector<std::size_t> OrderOfExchanges(const std::vector<std::string_view>& keys) {
    std::vector<std::size_t> order(keys.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t j = i + 1; j < order.size(); ++j) {
            if (keys[order[i]] > keys[order[j]]) {
                std::swap(order[i], order[j]);
            }
        }
    }
    return order;
}

TEST(ExchangeOrder, IsThatOfTheExchanges) {
    const std::string strLetters = "BaABAbabcCb\xE4";
    std::mt19937 random(8);
    for (int nRound = 0; nRound < 20000; ++nRound) {
        std::vector<std::string_view> keys(random() % 24);
        const std::size_t nKinds = 1 + random() % strLetters.size();
        for (std::string_view& strKey : keys) {
            strKey = std::string_view(strLetters).substr(random() % nKinds, random() % 3);
        }
        ASSERT_EQ(ExchangeOrder(keys), OrderOfExchanges(keys)) << nRound;
    }
}

} // namespace

} // namespace tessara
