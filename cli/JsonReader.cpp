#include "cli/JsonReader.h"

#include <cstddef>
#include <iterator>
#include <set>

#include <nlohmann/json.hpp>

#include "cli/InputError.h"
#include "cli/TextPlace.h"
#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_DEPTH = 64;
constexpr std::size_t MAX_KEY_BYTES = 48;
constexpr std::size_t NO_INDEX = static_cast<std::size_t>(-1);

/// Walks over the text for the parser and tells others how far it has come.
class CCountedByte {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CCountedByte(std::string_view strText, std::size_t nOffset, std::size_t& nRead)
        : m_pText(strText.data()), m_nOffset(nOffset), m_pRead(&nRead) {}
    reference operator*() const { return m_pText[m_nOffset]; }
    CCountedByte& operator++() {
        *m_pRead = ++m_nOffset;
        return *this;
    }
    bool operator==(const CCountedByte& other) const { return m_nOffset == other.m_nOffset; }

private:
    const char* m_pText;
    std::size_t m_nOffset;
    std::size_t* m_pRead;
};

/// An object or a list that is being read.
struct OPENVALUE {
    CJsonSlot* pSlot;
    bool bList;
    std::size_t nOffset;           ///< where it starts
    std::size_t nIndex = NO_INDEX; ///< of the list's current element
    std::string strKey;            ///< of the object's current member
    CJsonSlot* pMember = nullptr;
    std::set<std::string> keys; ///< so far
};

/// A key as a step of a JSON pointer.
std::string Escaped(std::string_view strKey) {
    std::string strStep;
    for (const char ch : CutText(strKey, MAX_KEY_BYTES)) {
        strStep += ch == '~' ? "~0" : ch == '/' ? "~1" : std::string(1, ch);
    }
    return strStep;
}

/// The parser's words about a syntax error, without what it read, which may be any bytes.
std::string SyntaxProblem(std::string strMessage, const std::string& strToken) {
    const std::size_t nStart = strMessage.find("syntax error");
    strMessage.erase(0, nStart == std::string::npos ? 0 : nStart);
    const std::string strRead = "; last read: '" + strToken + "'";
    const std::size_t nRead = strMessage.find(strRead);
    if (nRead != std::string::npos) {
        strMessage.erase(nRead, strRead.size());
    }
    return strMessage;
}

/// Hands what the parser finds to the slots.
class CJsonEvents : public nlohmann::json_sax<nlohmann::json> {
public:
    CJsonEvents(std::string_view strText, const std::string& strFile, CJsonSlot& root)
        : m_strText(strText), m_strFile(strFile), m_Root(root) {}
    CCountedByte Begin() { return {m_strText, 0, m_nRead}; }
    CCountedByte End() { return {m_strText, m_strText.size(), m_nRead}; }

    bool null() override {
        return Value("null", [](CJsonSlot& slot) { return slot.TakeNull(); });
    }
    bool boolean(bool bValue) override {
        return Value(bValue ? "true" : "false", [=](CJsonSlot& slot) { return slot.TakeFlag(bValue); });
    }
    bool number_integer(number_integer_t nValue) override { return Number(static_cast<double>(nValue)); }
    bool number_unsigned(number_unsigned_t nValue) override { return Number(static_cast<double>(nValue)); }
    bool number_float(number_float_t dValue, const string_t&) override { return Number(dValue); }
    bool string(string_t& strText) override {
        return Value("a text", [&](CJsonSlot& slot) { return slot.TakeText(strText); });
    }
    bool binary(binary_t&) override { return false; } // JSON texts have none
    bool start_object(std::size_t) override { return Open("an object", false); }
    bool start_array(std::size_t) override { return Open("a list", true); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }
    bool key(string_t& strKey) override;
    bool parse_error(std::size_t nPosition, const std::string& strToken,
                     const nlohmann::detail::exception& error) override;

private:
    template <class TAKE>
    bool Value(const char* pszKind, TAKE take);
    bool Number(double dValue) {
        return Value("a number", [=](CJsonSlot& slot) { return slot.TakeNumber(dValue); });
    }
    bool Open(const char* pszKind, bool bList);
    bool Close();
    void FindStart();
    CJsonSlot& NextSlot();
    std::string Path() const;
    [[noreturn]] void Fail(const std::string& strProblem) const;

    std::string_view m_strText;
    const std::string& m_strFile;
    CJsonSlot& m_Root;
    std::vector<OPENVALUE> m_Open;
    std::size_t m_nRead = 0;     ///< bytes that the parser has taken
    std::size_t m_nPrevious = 0; ///< the same when the value or key before was found
    std::size_t m_nStart = 0;    ///< where the current value or key starts
};

/// The parser reports a token when it has read it, and at most one separator more.
void CJsonEvents::FindStart() {
    m_nStart = std::min(m_strText.find_first_not_of(" \t\r\n,:]}", m_nPrevious), m_strText.size());
    m_nPrevious = m_nRead;
}

CJsonSlot& CJsonEvents::NextSlot() {
    if (m_Open.empty()) {
        return m_Root;
    }
    OPENVALUE& open = m_Open.back();
    if (!open.bList) {
        return *open.pMember;
    }
    open.nIndex++;
    return *open.pSlot->GetElement();
}

template <class TAKE>
bool CJsonEvents::Value(const char* pszKind, TAKE take) {
    FindStart();
    CJsonSlot& slot = NextSlot();
    bool bTaken = false;
    try {
        bTaken = take(slot);
    } catch (const CException& error) {
        Fail(error.what());
    }
    if (!bTaken) {
        Fail(std::string("must be ") + slot.GetExpected() + ", not " + pszKind);
    }
    return true;
}

bool CJsonEvents::Open(const char* pszKind, bool bList) {
    CJsonSlot* pSlot = nullptr;
    Value(pszKind, [&](CJsonSlot& slot) {
        pSlot = &slot;
        return bList ? slot.TakesList() : slot.TakesObject();
    });
    if (m_Open.size() == MAX_DEPTH) {
        Fail("lies more than 64 levels deep");
    }
    OPENVALUE open{};
    open.pSlot = pSlot;
    open.bList = bList;
    open.nOffset = m_nStart;
    open.nIndex = NO_INDEX;
    m_Open.push_back(std::move(open));
    return true;
}

bool CJsonEvents::Close() {
    CJsonSlot* pSlot = m_Open.back().pSlot;
    m_nStart = m_Open.back().nOffset;
    m_nPrevious = m_nRead;
    m_Open.pop_back();
    try {
        pSlot->End();
    } catch (const CException& error) {
        Fail(error.what());
    }
    return true;
}

bool CJsonEvents::key(string_t& strKey) {
    FindStart();
    OPENVALUE& open = m_Open.back();
    open.strKey = strKey;
    if (!open.keys.insert(strKey).second) {
        Fail("the key appears twice");
    }
    open.pMember = open.pSlot->GetMember(strKey);
    if (!open.pMember) {
        Fail("the key is unknown; known are " + open.pSlot->ListMembers());
    }
    return true;
}

bool CJsonEvents::parse_error(std::size_t nPosition, const std::string& strToken,
                              const nlohmann::detail::exception& error) {
    if (dynamic_cast<const nlohmann::detail::out_of_range*>(&error)) {
        FindStart();
        NextSlot();
        Fail(Quoted(strToken) + " is beyond all numbers");
    }
    const TEXTPLACE place = PlaceIn(m_strText, nPosition > 0 ? nPosition - 1 : 0);
    throw CInputError(m_strFile, place.nLine, place.nColumn, SyntaxProblem(error.what(), strToken));
}

std::string CJsonEvents::Path() const {
    std::string strPath;
    for (const OPENVALUE& open : m_Open) {
        strPath += '/';
        strPath += open.bList ? std::to_string(open.nIndex) : Escaped(open.strKey);
    }
    return strPath;
}

void CJsonEvents::Fail(const std::string& strProblem) const {
    const TEXTPLACE place = PlaceIn(m_strText, m_nStart);
    const std::string strPath = Path();
    throw CInputError(m_strFile, place.nLine, place.nColumn,
                      strPath.empty() ? strProblem : strPath + ": " + strProblem);
}

} // namespace

void ReadJson(std::string_view strText, const std::string& strFile, CJsonSlot& root) {
    CJsonEvents events(strText, strFile, root);
    nlohmann::json::sax_parse(events.Begin(), events.End(), &events);
}

} // namespace tessara
