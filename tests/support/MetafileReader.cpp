#include "tests/support/MetafileReader.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <functional>
#include <map>
#include <numeric>

#include "tessara/platform/base/Number.h"

namespace {

using tessara::FormatText;
using Words = std::span<const std::uint16_t>;

int Signed(std::uint16_t nWord) {
    return static_cast<std::int16_t>(nWord);
}

unsigned Long(Words words, std::size_t nAt) {
    return words[nAt] | static_cast<unsigned>(words[nAt + 1]) << 16;
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

struct CRecord {
    std::size_t nWords;     ///< of parameters, the least of them where their number varies
    const char* pszPattern; ///< see CReader::Fill
    const char* pszNeeds;   ///< initials of the kinds of objects that must be selected
};

const std::map<unsigned, CRecord> RECORDS{
    {0x0000, {0, "End", ""}},
    {0x0102, {1, "SetBkMode #0", ""}},
    {0x0104, {1, "SetROP2 #0", ""}},
    {0x012D, {1, "Select@0", ""}},
    {0x01F0, {1, "Delete@0", ""}},
    {0x0201, {2, "SetBkColor $0", ""}},
    {0x0209, {2, "SetTextColor $0", ""}},
    {0x020B, {2, "SetWindowOrg #1 #0", ""}},
    {0x020C, {2, "SetWindowExt #1 #0", ""}},
    {0x0213, {2, "LineTo #1,#0", "P"}},
    {0x0214, {2, "MoveTo #1,#0", ""}},
    {0x02FA, {5, "CreatePen style #0 width #1 colour $3", ""}},
    {0x02FB, {10, "CreateFont #0 %0", ""}},
    {0x02FC, {4, "CreateBrush style #0 colour $1", ""}},
    {0x0324, {1, "Polygon #0:*0", "PB"}},
    {0x0325, {1, "Polyline #0:*0", "P"}},
    {0x0418, {4, "Ellipse #3,#2 #1,#0", "PB"}},
    {0x041B, {4, "Rectangle #3,#2 #1,#0", "PB"}},
    {0x0A32, {4, "ExtTextOut #1,#0 &0", "F"}},
    {0x0F43, {31, "StretchDib #10,#9 #8 x #7 !11", ""}},
};

class CReader {
public:
    CMetafileReading Read(Words words) {
        if (words.size() > 11 && Long(words, 0) == 0x9AC6CDD7) {
            m_reading.lines.push_back(Fill("Placeable #3,#4 #5,#6 at #7 per inch", words));
            Check(std::accumulate(words.begin(), words.begin() + 10, 0, std::bit_xor<>()) == words[10],
                  "placeable checksum");
            words = words.subspan(11);
        }
        if (words.size() < 9) {
            return {{}, {"no header"}};
        }
        m_reading.lines.push_back(FormatText("Metafile version %04X objects %d", words[2], words[5]));
        ReadRecords(words.subspan(9));
        Check(words[0] == 1 && words[1] == 9 && words[2] == 0x0300 && words[8] == 0, "header constants");
        Check(Long(words, 3) == words.size(), "header: number of words");
        Check(words[5] == m_kinds.size(), "header: number of objects");
        Check(Long(words, 6) == m_nLargest, "header: largest record");
        return m_reading;
    }

private:
    void Check(bool bSound, const std::string& strFault) {
        if (!bSound) {
            m_reading.faults.push_back(FormatText("record %zu: ", m_reading.lines.size()) + strFault);
        }
    }

    void ReadRecords(Words words) {
        bool bEnded = false;
        while (words.size() >= 3 && !bEnded) {
            const std::size_t nSize = Long(words, 0);
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
        const auto found = RECORDS.find(nFunction);
        if (found == RECORDS.end() || words.size() < found->second.nWords) {
            Check(false, FormatText("unknown function or too short: %04X", nFunction));
            return;
        }
        const CRecord& record = found->second;
        for (const char chKind : std::string_view(record.pszNeeds)) {
            Check(m_selected.contains(chKind), std::string("no living object of kind ") + chKind);
        }
        m_nUsed = record.nWords;
        std::string strLine = Fill(record.pszPattern, words);
        if (strLine.starts_with("Create")) {
            strLine += FormatText(" -> %zu", Create(strLine.substr(6, strLine.find(' ') - 6)));
        } else if (strLine.starts_with("Select")) {
            m_selected[strLine[6]] = words[0];
        } else if (strLine.starts_with("Delete")) {
            std::erase_if(m_selected, [&](const auto& selected) { return selected.second == words[0]; });
            m_kinds.resize(std::max<std::size_t>(m_kinds.size(), words[0] + 1U));
            m_kinds[words[0]].clear();
        }
        Check(m_nUsed == words.size(), "size of " + strLine);
        Check(!strLine.starts_with("CreatePen") || words[2] == 0, "pen width y");
        Check(!strLine.starts_with("CreateBrush") || words[3] == 0, "brush hatch");
        m_reading.lines.push_back(strLine);
    }

    /// A pattern with #n replaced by the signed word n, $n by the colour that begins there, @n by the kind
    /// and number of the object with that handle, and *, % and & by the points, font or text of the record.
    std::string Fill(const char* pszPattern, Words words) {
        std::string strText;
        for (const char* psz = pszPattern; *psz != 0; ++psz) {
            const char chKind = *psz;
            if (std::string_view("#$@*%&!").find(chKind) == std::string_view::npos) {
                strText += chKind;
                continue;
            }
            std::size_t nWord = 0;
            while (std::isdigit(static_cast<unsigned char>(psz[1]))) {
                nWord = 10 * nWord + static_cast<std::size_t>(*++psz - '0');
            }
            const Words from = words.subspan(nWord);
            strText += chKind == '#'   ? FormatText("%d", Signed(from[0]))
                       : chKind == '$' ? FormatText("%06X", Long(from, 0))
                       : chKind == '@' ? KindOf(from[0]) + FormatText(" %d", from[0])
                       : chKind == '*' ? PointList(from)
                       : chKind == '%' ? Font(from)
                       : chKind == '!' ? Bitmap(from)
                                       : Text(from);
        }
        return strText;
    }

    /// A bitmap of 24 bits: its size and the colour of the pixel at the top left.
    std::string Bitmap(Words words) {
        const std::size_t nWidth = Long(words, 2);
        const std::size_t nHeight = Long(words, 4);
        const std::size_t nRowWords = (nWidth * 3 + 3) / 4 * 2;
        const std::size_t nTop = 20 + nRowWords * (nHeight - 1); // rows go upward
        Check(Long(words, 0) == 40 && words[6] == 1 && words[7] == 24, "bitmap header");
        if (nHeight == 0 || words.size() < nTop + nRowWords) {
            Check(false, "bitmap without its rows");
            return "";
        }
        m_nUsed = 11 + 20 + nRowWords * nHeight;
        return FormatText("bitmap %zu x %zu %06X", nWidth, nHeight, Long(words, nTop) & 0xFFFFFF);
    }

    std::size_t Create(const std::string& strKind) {
        const auto free = std::find(m_kinds.begin(), m_kinds.end(), "");
        const auto nHandle = static_cast<std::size_t>(free - m_kinds.begin());
        m_kinds.resize(std::max(m_kinds.size(), nHandle + 1));
        m_kinds[nHandle] = strKind;
        return nHandle;
    }

    std::string KindOf(std::size_t nHandle) {
        std::string strKind = nHandle < m_kinds.size() ? m_kinds[nHandle] : "";
        Check(!strKind.empty(), FormatText("handle %zu does not exist", nHandle));
        return strKind;
    }

    std::string PointList(Words words) {
        m_nUsed = 1 + 2U * words[0];
        Check(words[0] > 0 && words[0] <= 32767, "number of points");
        return Points(words.subspan(1));
    }

    std::string Font(Words words) {
        m_nUsed = words.size();
        const std::string strFace = Bytes(words.subspan(9), 2 * (words.size() - 9));
        const std::size_t nEnd = strFace.find('\0');
        Check((words[1] | words[2] | words[3] | words[5] >> 8 | (words[6] & 0xFF) | words[7] | words[8]) == 0,
              "font fields that are not used");
        Check(nEnd < 32 && nEnd / 2 + 10 == words.size(), "font name is not ended");
        return Quoted(strFace.substr(0, nEnd)) +
               FormatText(" charset %d weight %d", words[6] >> 8, Signed(words[4])) +
               (words[5] & 0xFF ? " italic" : "");
    }

    std::string Text(Words words) {
        const std::size_t nBytes = words[2];
        const std::size_t nAdvances = 4 + (nBytes + 1) / 2;
        m_nUsed = nAdvances + nBytes;
        if (m_nUsed != words.size()) {
            return "";
        }
        Check(words[3] == 0, "text options");
        std::string strText = Quoted(Bytes(words.subspan(4), nBytes)) + " [";
        for (std::size_t i = 0; i < nBytes; ++i) {
            strText += FormatText(i == 0 ? "%d" : " %d", Signed(words[nAdvances + i]));
        }
        return strText + "]";
    }

    CMetafileReading m_reading;
    std::vector<std::string> m_kinds;       ///< by handle; empty where it is free
    std::map<char, std::size_t> m_selected; ///< by the initial of its kind
    std::size_t m_nLargest = 0;
    std::size_t m_nUsed = 0; ///< words that the record being read should have
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
    std::vector<std::uint16_t> words(bytes.size() / 2); // without half a word at the end
    for (std::size_t i = 0; i < 2 * words.size(); ++i) {
        words[i / 2] |= static_cast<std::uint16_t>(bytes[i] << (i % 2 * 8));
    }
    return CReader().Read(words);
}
