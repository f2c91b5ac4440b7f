#include "tests/support/MetafileReader.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include "tessara/platform/base/Number.h"

namespace {

using tessara::FormatText;
using Words = std::span<const std::uint16_t>;

int Signed(std::uint16_t nWord) {
    return static_cast<std::int16_t>(nWord);
}

unsigned Long(std::uint16_t nLow, std::uint16_t nHigh) {
    return nLow | static_cast<unsigned>(nHigh) << 16;
}

std::string Bytes(Words words, std::size_t nCount) {
    std::string strBytes;
    for (std::size_t i = 0; i < nCount && i / 2 < words.size(); ++i) {
        strBytes.push_back(static_cast<char>(words[i / 2] >> (i % 2 * 8)));
    }
    return strBytes;
}

std::string Quoted(const std::string& strBytes) {
    std::string strText = "\"";
    for (const char ch : strBytes) {
        const auto nByte = static_cast<unsigned char>(ch);
        strText += nByte < 0x20 || nByte > 0x7E ? FormatText("\\x%02X", nByte) : std::string(1, ch);
    }
    return strText + "\"";
}

/// Points are pairs of words, x first. Long lists are told by their ends, bounds and a checksum.
std::string Points(Words words) {
    constexpr std::size_t MAX_SHOWN = 12;
    const std::size_t nPoints = words.size() / 2;
    std::string strText;
    std::uint32_t nSum = 2166136261U;
    int nLeft = 32767, nTop = 32767, nRight = -32768, nBottom = -32768;
    for (std::size_t i = 0; i < nPoints; ++i) {
        const int nX = Signed(words[2 * i]);
        const int nY = Signed(words[2 * i + 1]);
        nLeft = std::min(nLeft, nX), nRight = std::max(nRight, nX);
        nTop = std::min(nTop, nY), nBottom = std::max(nBottom, nY);
        nSum = ((nSum ^ words[2 * i]) * 16777619U ^ words[2 * i + 1]) * 16777619U;
        if (nPoints <= MAX_SHOWN || i < 2 || i + 2 >= nPoints) {
            strText += FormatText(" %d,%d", nX, nY);
        } else if (i == 2) {
            strText += " ...";
        }
    }
    if (nPoints > MAX_SHOWN) {
        strText += FormatText(" within %d,%d %d,%d sum %08x", nLeft, nTop, nRight, nBottom, nSum);
    }
    return strText;
}

class CReader {
public:
    explicit CReader(std::span<const unsigned char> bytes) {
        Check(bytes.size() % 2 == 0, "odd number of bytes");
        for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
            m_words.push_back(static_cast<std::uint16_t>(bytes[i] | bytes[i + 1] << 8));
        }
    }

    CMetafileReading Read() {
        Words words = m_words;
        if (words.size() > 11 && Long(words[0], words[1]) == 0x9AC6CDD7) {
            ReadPlaceable(words.first(11));
            words = words.subspan(11);
        }
        if (words.size() < 9) {
            m_reading.faults.push_back("no header");
            return m_reading;
        }
        const Words header = words.first(9);
        m_reading.lines.push_back(FormatText("Metafile version %04X objects %d", header[2], header[5]));
        ReadRecords(words.subspan(9));
        Check(header[0] == 1 && header[1] == 9 && header[2] == 0x0300 && header[8] == 0, "header constants");
        Check(Long(header[3], header[4]) == words.size(), "header: number of words");
        Check(header[5] == m_kinds.size(), "header: number of objects");
        Check(Long(header[6], header[7]) == m_nLargest, "header: largest record");
        return m_reading;
    }

private:
    using Describe = std::function<std::string(Words)>;
    struct CFunction {
        std::size_t nWords; ///< of parameters, 0 for as many as it says itself
        Describe describe;
    };

    void Check(bool bSound, const std::string& strFault) {
        if (!bSound) {
            m_reading.faults.push_back(FormatText("record %zu: ", m_reading.lines.size()) + strFault);
        }
    }

    void ReadPlaceable(Words words) {
        std::uint16_t nSum = 0;
        for (const std::uint16_t nWord : words.first(10)) {
            nSum ^= nWord;
        }
        m_reading.lines.push_back(FormatText("Placeable %d,%d %d,%d at %d per inch", Signed(words[3]),
                                             Signed(words[4]), Signed(words[5]), Signed(words[6]), words[7]));
        Check(nSum == words[10], "placeable checksum");
        Check(words[2] == 0 && words[8] == 0 && words[9] == 0, "placeable reserved words");
    }

    void ReadRecords(Words words) {
        bool bEnded = false;
        while (words.size() >= 3 && !bEnded) {
            const std::size_t nSize = Long(words[0], words[1]);
            if (nSize < 3 || nSize > words.size()) {
                break;
            }
            m_nLargest = std::max(m_nLargest, nSize);
            bEnded = words[2] == 0;
            ReadRecord(words[2], words.subspan(3, nSize - 3));
            words = words.subspan(nSize);
        }
        Check(bEnded, "no end record");
        Check(words.empty(), "words behind the last record");
        for (const std::string& strKind : m_kinds) {
            Check(strKind.empty(), strKind + " never deleted");
        }
    }

    void ReadRecord(unsigned nFunction, Words words) {
        const auto found = m_functions.find(nFunction);
        if (found == m_functions.end()) {
            Check(false, FormatText("unknown function %04X", nFunction));
        } else if (found->second.nWords > words.size()) {
            Check(false, FormatText("function %04X is too short", nFunction));
        } else {
            m_nUsed = found->second.nWords;
            const std::string strLine = found->second.describe(words);
            Check(m_nUsed == words.size(), "size of " + strLine);
            m_reading.lines.push_back(strLine);
        }
    }

    std::string Create(const char* pszKind, const std::string& strWhat) {
        const auto free = std::find(m_kinds.begin(), m_kinds.end(), "");
        const auto nHandle = static_cast<int>(free - m_kinds.begin());
        if (free == m_kinds.end()) {
            m_kinds.emplace_back(pszKind);
        } else {
            *free = pszKind;
        }
        return "Create" + std::string(pszKind) + " " + strWhat + FormatText(" -> %d", nHandle);
    }

    std::string KindOf(std::size_t nHandle) {
        const std::string strKind = nHandle < m_kinds.size() ? m_kinds[nHandle] : "";
        Check(!strKind.empty(), FormatText("handle %zu does not exist", nHandle));
        return strKind;
    }

    std::string Select(std::size_t nHandle) {
        const std::string strKind = KindOf(nHandle);
        m_selected[strKind] = nHandle;
        return "Select" + strKind + FormatText(" %zu", nHandle);
    }

    std::string Delete(std::size_t nHandle) {
        const std::string strKind = KindOf(nHandle);
        if (nHandle < m_kinds.size()) {
            m_kinds[nHandle].clear();
        }
        std::erase_if(m_selected, [&](const auto& selected) { return selected.second == nHandle; });
        return "Delete" + strKind + FormatText(" %zu", nHandle);
    }

    /// Notes that what is drawn now depends on the selected object of a kind.
    void Use(const char* pszKind) {
        Check(m_selected.contains(pszKind), std::string("no living ") + pszKind + " is selected");
    }

    std::string Value(const char* pszName, Words words) { return pszName + FormatText(" %d", words[0]); }
    std::string Color(const char* pszName, Words words) {
        return pszName + FormatText(" %06X", Long(words[0], words[1]));
    }
    /// y comes first.
    std::string Pair(const char* pszName, Words words, char chBetween) {
        return pszName + FormatText(" %d%c%d", Signed(words[1]), chBetween, Signed(words[0]));
    }
    std::string Line(const char* pszName, Words words) {
        Use("Pen");
        return Pair(pszName, words, ',');
    }
    std::string Shape(const char* pszName, Words words) {
        Use("Pen");
        Use("Brush");
        return pszName + FormatText(" %d,%d %d,%d", Signed(words[3]), Signed(words[2]), Signed(words[1]),
                                    Signed(words[0]));
    }
    std::string PointList(const char* pszName, Words words) {
        Use("Pen");
        const std::size_t nPoints = words[0];
        m_nUsed = 1 + 2 * nPoints;
        Check(nPoints > 0 && nPoints <= 32767, "number of points");
        return pszName + FormatText(" %zu:", nPoints) + Points(words.subspan(1));
    }

    std::string Pen(Words words) {
        return Create("Pen", FormatText("style %d width %d colour %06X", words[0], Signed(words[1]),
                                        Long(words[3], words[4])));
    }
    std::string Brush(Words words) {
        return Create("Brush", FormatText("style %d colour %06X", words[0], Long(words[1], words[2])));
    }
    std::string Font(Words words) {
        const Words name = words.subspan(9);
        std::string strFace = Bytes(name, 2 * name.size());
        const std::size_t nEnd = strFace.find('\0');
        Check(nEnd < 32 && nEnd / 2 + 1 == name.size(), "font name is not ended");
        m_nUsed = words.size();
        strFace.resize(std::min(nEnd, strFace.size()));
        std::string strWhat = FormatText("%d ", Signed(words[0])) + Quoted(strFace);
        strWhat += FormatText(" charset %d weight %d", words[6] >> 8, Signed(words[4]));
        return Create("Font", strWhat + (words[5] & 0xFF ? " italic" : ""));
    }

    std::string Text(Words words) {
        Use("Font");
        const std::size_t nBytes = words[2];
        const std::size_t nTextWords = (nBytes + 1) / 2;
        m_nUsed = 4 + nTextWords + nBytes;
        if (m_nUsed != words.size()) {
            return "ExtTextOut";
        }
        Check(words[3] == 0, "text options");
        std::string strLine =
            Pair("ExtTextOut", words, ',') + " " + Quoted(Bytes(words.subspan(4, nTextWords), nBytes)) + " [";
        for (std::size_t i = 0; i < nBytes; ++i) {
            strLine += FormatText(i == 0 ? "%d" : " %d", Signed(words[4 + nTextWords + i]));
        }
        return strLine + "]";
    }

    std::vector<std::uint16_t> m_words;
    CMetafileReading m_reading;
    std::vector<std::string> m_kinds; ///< by handle; empty where it is free
    std::map<std::string, std::size_t> m_selected;
    std::size_t m_nLargest = 0;
    std::size_t m_nUsed = 0; ///< words that the record being read should have

    const std::map<unsigned, CFunction> m_functions{
        {0x0000, {0, [](Words) { return "End"; }}},
        {0x0102, {1, [this](Words words) { return Value("SetBkMode", words); }}},
        {0x0104, {1, [this](Words words) { return Value("SetROP2", words); }}},
        {0x012D, {1, [this](Words words) { return Select(words[0]); }}},
        {0x01F0, {1, [this](Words words) { return Delete(words[0]); }}},
        {0x0201, {2, [this](Words words) { return Color("SetBkColor", words); }}},
        {0x0209, {2, [this](Words words) { return Color("SetTextColor", words); }}},
        {0x020B, {2, [this](Words words) { return Pair("SetWindowOrg", words, ' '); }}},
        {0x020C, {2, [this](Words words) { return Pair("SetWindowExt", words, ' '); }}},
        {0x0213, {2, [this](Words words) { return Line("LineTo", words); }}},
        {0x0214, {2, [this](Words words) { return Pair("MoveTo", words, ','); }}},
        {0x02FA, {5, [this](Words words) { return Pen(words); }}},
        {0x02FB, {10, [this](Words words) { return Font(words); }}},
        {0x02FC, {4, [this](Words words) { return Brush(words); }}},
        {0x0324, {1, [this](Words words) { return Use("Brush"), PointList("Polygon", words); }}},
        {0x0325, {1, [this](Words words) { return PointList("Polyline", words); }}},
        {0x0418, {4, [this](Words words) { return Shape("Ellipse", words); }}},
        {0x041B, {4, [this](Words words) { return Shape("Rectangle", words); }}},
        {0x0A32, {4, [this](Words words) { return Text(words); }}},
    };
};

} // namespace

std::string CMetafileReading::GetText() const {
    std::string strText;
    for (const std::string& strLine : lines) {
        strText += strLine + '\n';
    }
    return strText;
}

CMetafileReading ReadMetafile(std::span<const unsigned char> bytes) {
    return CReader(bytes).Read();
}
