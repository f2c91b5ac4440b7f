#include "cli/InputError.h"

#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_QUOTED_BYTES = 48;

std::string Message(std::string_view strFile, int nLine, int nColumn, std::string_view strProblem) {
    std::string strMessage(strFile);
    for (const int nNumber : {nLine, nColumn}) {
        if (nNumber > 0) {
            strMessage += ':';
            strMessage += std::to_string(nNumber);
        }
    }
    strMessage += ": ";
    strMessage += strProblem;
    return strMessage;
}

} // namespace

CInputError::CInputError(std::string_view strFile, int nLine, int nColumn, std::string_view strProblem)
    : CException(Message(strFile, nLine, nColumn, strProblem)), m_nLine(nLine), m_nColumn(nColumn) {}

CInputError::~CInputError() = default;

std::string Quoted(std::string_view strText) {
    const std::string_view strCut = CutText(strText, MAX_QUOTED_BYTES);
    std::string strQuoted = "\"";
    strQuoted += strCut;
    strQuoted += strCut.size() < strText.size() ? "...\"" : "\"";
    return strQuoted;
}

std::string OneLine(std::string_view strMessage) {
    std::string strLine(strMessage);
    for (char& ch : strLine) {
        const auto nByte = static_cast<unsigned char>(ch);
        if (nByte < 0x20 || nByte == 0x7F) {
            ch = '?';
        }
    }
    return strLine;
}

} // namespace tessara
