#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "cli/DiagramOutput.h"
#include "cli/InputError.h"
#include "tessara/platform/gdi/DC.h"
#include "tests/cli/Diagrams.h"

using tessara::DIAGRAM;
using tessara::DIAGRAMPART;

namespace {

constexpr int TEXTS = 30000;

const char* const NUMBERS[] = {"1", "0.07", "283", "-12.5", "-0", "1e308", "-1e308", "5e-324", "null"};
const char* const PIECES[] = {
    "1e999", "NaN",       "true",        "\"x\"",          "\"y\":",    "[",     "]",  "{",  "}",  ",",
    ":",     "\"",        "\\u0000",     "\xFF",           "\xC3\xA4",  "[1,2]", "{}", "[]", "\n", "//",
    "-",     "\\uD800\"", "\"zoom\":1,", "\"color\": 2, ", "\"name\":1"};

/// The full diagram with some damage: pieces put in or over, stretches cut out or repeated.
class CDamage {
public:
    std::string Next() {
        std::string strText = FULL_DIAGRAM;
        for (unsigned i = 1 + m_random() % 3; i > 0; i--) {
            const std::size_t nAt = m_random() % strText.size();
            const std::size_t nLength = m_random() % 3 ? m_random() % 4 : m_random() % 200;
            switch (m_random() % 8) {
            case 0:
                strText.insert(nAt, strText.substr(m_random() % strText.size(), nLength));
                break;
            case 1:
                strText[nAt] = static_cast<char>(m_random());
                break;
            case 2:
            case 3:
                strText.replace(nAt, nLength, PIECES[m_random() % std::size(PIECES)]);
                break;
            default:
                ReplaceNumber(strText, nAt);
            }
        }
        return strText;
    }

private:
    /// The next number after a place becomes another value of its kind.
    void ReplaceNumber(std::string& strText, std::size_t nAt) {
        const std::size_t nStart = std::min(strText.find_first_of("0123456789", nAt), strText.size());
        const std::size_t nEnd = std::min(strText.find_first_not_of("0123456789.e", nStart), strText.size());
        strText.replace(nStart, nEnd - nStart, NUMBERS[m_random() % std::size(NUMBERS)]);
    }

    std::mt19937 m_random{20240602};
};

void ExpectConsistent(const DIAGRAM& diagram, const std::string& strText) {
    for (const tessara::DIAGRAMCURVE* pCurve : {&diagram.binodal, &diagram.spinodal}) {
        for (const DIAGRAMPART& part : pCurve->parts) {
            ASSERT_EQ(part.x.size(), part.y.size()) << strText;
            ASSERT_TRUE(part.shadow.empty() || part.shadow.size() == part.x.size()) << strText;
            ASSERT_EQ(part.bHasColor, pCurve->HasBranches()) << strText;
            ASSERT_TRUE(part.nColor >= 0 && part.nColor <= 5) << strText;
        }
    }
    ASSERT_EQ(diagram.lifshitz.x.size(), diagram.lifshitz.y.size()) << strText;
}

void Draw(const DIAGRAM& diagram) {
    tessara::CDiagramOutput output(diagram);
    CDC nowhere;
    ASSERT_TRUE(output.Paint(&nowhere, {0, 0, 512, 368}, nullptr));
}

TEST(DiagramFile, AcceptsOrRefusesAnyTextWithOneLine) {
    CDamage damage;
    int nAccepted = 0;
    for (int i = 0; i < TEXTS; i++) {
        const std::string strText = damage.Next();
        try {
            const DIAGRAM diagram = tessara::ParseDiagram(strText, "d.json");
            ExpectConsistent(diagram, strText);
            nAccepted++;
            Draw(diagram);
        } catch (const tessara::CInputError& error) {
            ASSERT_EQ(std::string(error.what()).rfind("d.json:", 0), 0U) << strText;
            ASSERT_GT(error.m_nLine, 0) << strText;
            ASSERT_GT(error.m_nColumn, 0) << strText;
            ASSERT_EQ(tessara::OneLine(error.what()).find('\n'), std::string::npos);
        } catch (const CException& error) {
            ASSERT_STREQ(error.what(), "nothing of the diagram lies within what is to be shown");
        }
    }
    // Otherwise the texts are too odd to get far.
    EXPECT_GT(nAccepted, TEXTS / 20);
}

} // namespace
