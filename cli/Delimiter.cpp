#include "cli/Delimiter.h"

#include <algorithm>

#include "cli/Field.h"
#include "cli/InputError.h"
#include "cli/TextFile.h"

namespace tessara {

namespace {

/// As many lines as tell the delimiter; the first may be a header.
constexpr std::size_t SAMPLE_LINES = 32;
constexpr const char* BLANKS = " \t";

std::string_view Trimmed(std::string_view str) {
    const std::size_t nFirst = str.find_first_not_of(BLANKS);
    if (nFirst == std::string_view::npos) {
        return {};
    }
    return str.substr(nFirst, str.find_last_not_of(BLANKS) + 1 - nFirst);
}

void SplitAtBlanks(std::string_view strLine, std::vector<std::string>& fields) {
    std::size_t nFirst = strLine.find_first_not_of(BLANKS);
    while (nFirst != std::string_view::npos) {
        const std::size_t nEnd = strLine.find_first_of(BLANKS, nFirst);
        fields.emplace_back(strLine.substr(nFirst, nEnd - nFirst));
        nFirst = strLine.find_first_not_of(BLANKS, nEnd);
    }
}

/// The field that starts after the opening quote at the front of str; str becomes what follows the closing
/// quote. False when there is no closing quote.
bool TakeQuoted(std::string_view& str, std::string& strField) {
    str.remove_prefix(1);
    for (;;) {
        const std::size_t nQuote = str.find('"');
        if (nQuote == std::string_view::npos) {
            return false;
        }
        strField += str.substr(0, nQuote);
        str.remove_prefix(nQuote + 1);
        if (!str.starts_with('"')) {
            return true;
        }
        strField += '"';
        str.remove_prefix(1);
    }
}

/// Takes the next field off the front of str, and the delimiter after it. bMore tells whether there was a
/// delimiter. False when a quote does not end with its field.
bool TakeField(std::string_view& str, char chDelimiter, bool bQuotes, std::string& strField, bool& bMore) {
    std::string_view strStart = str;
    strStart.remove_prefix(std::min(str.find_first_not_of(BLANKS), str.size()));
    const bool bQuoted = bQuotes && strStart.starts_with('"');
    if (bQuoted) {
        str = strStart;
        if (!TakeQuoted(str, strField)) {
            return false;
        }
    }
    const std::size_t nEnd = str.find(chDelimiter);
    const std::string_view strPlain = Trimmed(str.substr(0, nEnd));
    if (bQuoted && !strPlain.empty()) {
        return false;
    }
    strField += strPlain;
    bMore = nEnd != std::string_view::npos;
    str.remove_prefix(bMore ? nEnd + 1 : str.size());
    return true;
}

} // namespace

CDelimiter CDelimiter::FromName(const std::string& strName) {
    static constexpr struct {
        const char* pszName;
        char ch;
    } names[] = {{"tab", '\t'}, {"\t", '\t'},       {"comma", ','}, {",", ','},
                 {";", ';'},    {"semicolon", ';'}, {"space", ' '}, {" ", ' '}};
    for (const auto& name : names) {
        if (strName == name.pszName) {
            return CDelimiter(name.ch);
        }
    }
    throw CException("--delimiter: " + Quoted(strName) + " is not tab, comma, semicolon or space");
}

int CDelimiter::Split(std::string_view strLine, std::vector<std::string>& fields) const {
    fields.clear();
    if (m_ch == ' ') {
        SplitAtBlanks(strLine, fields);
        return 0;
    }
    for (bool bMore = true; bMore;) {
        if (!TakeField(strLine, m_ch, HasQuotes(), fields.emplace_back(), bMore)) {
            return static_cast<int>(fields.size());
        }
    }
    return 0;
}

double CDelimiter::ShareOfNumbers(const std::vector<std::string_view>& lines) const {
    std::vector<std::string> fields;
    std::size_t nFields = 0;
    std::size_t nNumbers = 0;
    bool bSplits = false;
    for (const std::string_view strLine : lines) {
        Split(strLine, fields);
        bSplits = bSplits || fields.size() > 1;
        for (const std::string& strField : fields) {
            const FieldKind kind = ReadField(strField).kind;
            nFields += kind != FieldKind::Empty;
            nNumbers += kind != FieldKind::Empty && kind != FieldKind::Text;
        }
    }
    return bSplits && nFields > 0 ? static_cast<double>(nNumbers) / static_cast<double>(nFields) : -1.0;
}

CDelimiter CDelimiter::Detect(std::string_view strText) {
    std::vector<std::string_view> lines;
    for (CLineReader reader(strText); lines.size() < SAMPLE_LINES && reader.Next();) {
        lines.push_back(reader.GetLine());
    }
    CDelimiter best('\t');
    double dBest = best.ShareOfNumbers(lines);
    for (const char ch : {';', ',', ' '}) {
        const CDelimiter candidate(ch);
        const double dShare = candidate.ShareOfNumbers(lines);
        if (dShare > dBest) {
            best = candidate;
            dBest = dShare;
        }
    }
    return best;
}

} // namespace tessara
