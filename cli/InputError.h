#pragma once

#include <string>
#include <string_view>

#include "tessara/platform/base/Exception.h"

namespace tessara {

/// Something in a file given by the user cannot be used. what() is one line, "file:line:column: problem",
/// without the parts that are 0.
class CInputError : public CException {
public:
    /// nLine counts the lines of the file from 1. nColumn counts from 1 what a file's lines are made of: the
    /// fields of a file of columns, as `--columns` does, and the characters of a diagram file.
    CInputError(std::string_view strFile, int nLine, int nColumn, std::string_view strProblem);
    ~CInputError() override;
    CInputError(const CInputError&) = default;
    CInputError& operator=(const CInputError&) = default;

    int m_nLine;
    int m_nColumn;
};

/// A piece of a user's text between quotes, cut to a length that a message can hold.
std::string Quoted(std::string_view strText);

/// A message without line breaks and other control characters, for one line on a terminal.
std::string OneLine(std::string_view strMessage);

} // namespace tessara
