#include "tessara/appframe/ProgressEstimate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace tessara {

namespace {

using CTime = CProgressEstimate::CTime;

CTime At(double dSeconds) {
    return CTime(std::chrono::duration_cast<CTime::duration>(std::chrono::duration<double>(dSeconds)));
}

TEST(ProgressEstimate, TellsOfTheTimeLeftOnceItIsKnown) {
    struct CCase {
        double dFraction;
        double dSeconds;
        const char* pszText;
    };
    constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
    for (const CCase& entry : {CCase{0, 100, ""},
                               {0.009, 100, ""},
                               {NO_NUMBER, 100, ""},
                               {-1, 100, ""},
                               {0.5, 2, "50 % done"},
                               {0.29, 2.5, "29 % done"},
                               {0.5, 4, "50 % done, about 10 s left"},
                               {0.1, 3, "10 % done, about 30 s left"},
                               {0.12, 24, "12 % done, about 3 min left"},
                               {0.01, 60, "1 % done, about 2 h left"},
                               {0.999, 1000, "99 % done, about 10 s left"},
                               {1, 100, "100 % done"},
                               {7, 100, "100 % done"},
                               {0.01, 1e9, "1 % done"}}) {
        CProgressEstimate estimate;
        estimate.Begin(At(0));
        EXPECT_EQ(estimate.Describe(entry.dFraction, At(entry.dSeconds)), entry.pszText);
    }
}

/// A pace that varies by a half, from moment to moment: a user sees the time fall and, at most, rise a little
/// while.
TEST(ProgressEstimate, DoesNotJumpAbout) {
    std::mt19937 random(3);
    std::uniform_real_distribution<double> pace(0.5, 1.5);
    int nRises = 0;
    for (int nRun = 0; nRun < 100; ++nRun) {
        CProgressEstimate estimate;
        estimate.Begin(At(0));
        double dTime = 0;
        long nBefore = 0;
        for (int i = 1; i <= 1000; ++i) {
            dTime += 0.6 * pace(random); // ten minutes in all
            const std::string strText = estimate.Describe(i / 1000.0, At(dTime));
            const std::size_t nAbout = strText.find("about ");
            if (nAbout == std::string::npos) {
                continue;
            }
            const long nLeft =
                std::stol(strText.substr(nAbout + 6)) * (strText.find(" min") != std::string::npos ? 60 : 1);
            nRises += nBefore != 0 && nLeft > nBefore;
            nBefore = nLeft;
        }
        EXPECT_EQ(nBefore, 10);
    }
    EXPECT_LE(nRises, 10);
}

TEST(ProgressEstimate, GrowsWhenTheWorkHasBecomeMuchSlower) {
    CProgressEstimate estimate;
    estimate.Begin(At(0));
    EXPECT_EQ(estimate.Describe(0.5, At(100)), "50 % done, about 2 min left");
    EXPECT_EQ(estimate.Describe(0.51, At(150)), "51 % done, about 2 min left");
    EXPECT_EQ(estimate.Describe(0.52, At(400)), "52 % done, about 7 min left");
}

} // namespace

} // namespace tessara
