#pragma once

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace tessara::models {

/// The lists of the choose curves dialog, one plain function for each of the user's doings.
///
/// Which line is selected is the lists' own matter: every function is told, -1 for none. Read here where both
/// is possible: a list with more lines than the largest number is full as well; a full list is said to be
/// full before it is asked whether it has the name already; an application that gave fewer indices than names
/// loses none of those it gave when a line without one is removed.
struct CChooseCurvesModel {
    std::vector<std::string> sortedNames; ///< the computed list from top to bottom
    int nMaxDisplayed = 3;
    std::string strDisplayedLabel;

    std::vector<std::string> displayedNames;
    std::vector<std::uint32_t> displayedIndices;

    /// Returns the message to be shown, or nothing.
    std::string Add(int nSelected) {
        if (nSelected < 0) {
            return {};
        }
        if (static_cast<int>(displayedNames.size()) >= nMaxDisplayed) {
            return "The " + strDisplayedLabel + " is full";
        }
        const std::string& strName = sortedNames.at(static_cast<std::size_t>(nSelected));
        if (std::find(displayedNames.begin(), displayedNames.end(), strName) == displayedNames.end()) {
            displayedNames.push_back(strName);
            displayedIndices.push_back(static_cast<std::uint32_t>(nSelected));
        }
        return {};
    }

    void Remove(int nSelected) {
        const auto erase = [nSelected](auto& list) {
            if (nSelected >= 0 && nSelected < static_cast<int>(list.size())) {
                list.erase(list.begin() + nSelected);
            }
        };
        erase(displayedNames);
        erase(displayedIndices);
    }

    void Clear() {
        displayedNames.clear();
        displayedIndices.clear();
    }

    bool MayClose() const { return !displayedNames.empty(); }

    /// Whether lines stand in alphabetical order, whatever the case of their letters (of ASCII).
    static bool IsAlphabetical(const std::vector<std::string>& lines) {
        return std::is_sorted(lines.begin(), lines.end(), [](const std::string& a, const std::string& b) {
            return std::lexicographical_compare(
                a.begin(), a.end(), b.begin(), b.end(),
                [](unsigned char c, unsigned char d) { return std::tolower(c) < std::tolower(d); });
        });
    }

    /// The eight texts of a resource string. A text that no line feed ends is empty and leaves the rest to
    /// the texts after it; the last takes what is left.
    static std::array<std::string, 8> SplitTexts(std::string strRest) {
        std::array<std::string, 8> texts;
        for (std::size_t i = 0; i < 7; ++i) {
            if (const std::size_t nEnd = strRest.find('\n'); nEnd != std::string::npos) {
                texts[i] = strRest.substr(0, nEnd);
                strRest.erase(0, nEnd + 1);
            }
        }
        texts[7] = strRest;
        return texts;
    }
};

/// What somebody does with the dialog who cannot decide.
class CChooseCurvesClicks {
public:
    enum class EClick { SelectComputed, SelectDisplayed, Add, Remove, Clear, AddTwice, RemoveTwice, Ok };
    struct CStep {
        EClick eClick; ///< AddTwice and RemoveTwice: double clicks on a line
        int nLine;     ///< of a list as long as it may be; to be taken modulo the list's length
    };

    explicit CChooseCurvesClicks(unsigned nSeed) : m_random(nSeed) {}

    /// Few names: some come twice, some differ in case alone.
    CChooseCurvesModel Start() {
        CChooseCurvesModel model;
        for (int i = Below(9); i > 0; --i) {
            model.sortedNames.push_back(Name());
        }
        model.nMaxDisplayed = Below(6);
        model.strDisplayedLabel = Below(2) ? "list of curves" : "";
        for (int i = Below(3) ? 0 : Below(4); i > 0; --i) {
            model.displayedNames.push_back(Name());
            if (Below(4)) {
                model.displayedIndices.push_back(static_cast<std::uint32_t>(Below(9)));
            }
        }
        return model; // its computed names not sorted yet
    }

    std::vector<CStep> Steps() {
        std::discrete_distribution<int> clicks({3, 2, 3, 2, 1, 3, 1, 1}); // each click's weight
        std::vector<CStep> steps;
        for (int i = 1 + Below(20); i > 0; --i) {
            steps.push_back({static_cast<EClick>(clicks(m_random)), Below(1000)});
        }
        return steps;
    }

private:
    int Below(std::size_t n) { return static_cast<int>(m_random() % n); }
    std::string Name() {
        static constexpr const char* s_names[] = {"ca", "cA", "Ca", "cb", "caa", "caA", "1", "c ~"};
        return s_names[Below(std::size(s_names))];
    }

    std::mt19937 m_random;
};

} // namespace tessara::models
