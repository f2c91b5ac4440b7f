#include "cli/JsonSlot.h"

#include <algorithm>
#include <limits>

#include "cli/InputError.h"

namespace tessara {

namespace {

constexpr std::size_t MAX_TEXT_BYTES = 1000;

void CheckText(const std::string& strText) {
    if (strText.size() > MAX_TEXT_BYTES) {
        throw CException("must be at most 1000 bytes long");
    }
    if (OneLine(strText) != strText) {
        throw CException("must have no line breaks and other control characters");
    }
}

} // namespace

CTextSlot::CTextSlot(std::optional<std::string>& target)
    : CTextSlot([&target](const std::string& strText) { target = strText; }) {}

bool CTextSlot::TakeText(const std::string& strText) {
    CheckText(strText);
    m_Take(strText);
    return true;
}

bool CFlagSlot::TakeFlag(bool bValue) {
    m_bTarget = bValue;
    return true;
}

CNumberSlot::CNumberSlot(std::optional<double>& target)
    : CNumberSlot([&target](double dValue) { target = dValue; }) {}

bool CNumberSlot::TakeNumber(double dValue) {
    m_Take(dValue);
    return true;
}

const char* CNumbersSlot::CElement::GetExpected() const {
    return m_Gaps == Gaps::Null ? "a number or null" : "a number";
}

bool CNumbersSlot::CElement::TakeNull() {
    return m_Gaps == Gaps::Null && TakeNumber(std::numeric_limits<double>::quiet_NaN());
}

bool CNumbersSlot::CElement::TakeNumber(double dValue) {
    m_Target.push_back(dValue);
    return true;
}

CPairSlot::CPairSlot(const char* pszExpected, std::function<void(double, double)> take)
    : m_pszExpected(pszExpected), m_Take(std::move(take)), m_Numbers(m_Values, CNumbersSlot::Gaps::None) {}

CJsonSlot* CPairSlot::GetElement() {
    return m_Numbers.GetElement();
}

void CPairSlot::End() {
    if (m_Values.size() != 2) {
        throw CException(std::string("must be ") + m_pszExpected + ", not a list of " +
                         std::to_string(m_Values.size()));
    }
    m_Take(m_Values[0], m_Values[1]);
}

CListSlot::CListSlot(const char* pszExpected, std::function<JSONSLOT()> makeElement,
                     std::function<void()> end)
    : m_pszExpected(pszExpected), m_MakeElement(std::move(makeElement)), m_End(std::move(end)) {}

CJsonSlot* CListSlot::GetElement() {
    m_pElement = m_MakeElement();
    return m_pElement.get();
}

void CListSlot::End() {
    if (m_End) {
        m_End();
    }
}

void CObjectSlot::Add(const char* pszKey, JSONSLOT pSlot, bool bRequired) {
    m_Members.push_back({pszKey, std::move(pSlot), bRequired});
}

void CObjectSlot::AllowOthers() {
    m_pOthers = std::make_unique<CAnySlot>();
}

CJsonSlot* CObjectSlot::GetMember(const std::string& strKey) {
    const auto found = std::find_if(m_Members.begin(), m_Members.end(),
                                    [&](const MEMBER& member) { return member.pszKey == strKey; });
    if (found == m_Members.end()) {
        return m_pOthers.get();
    }
    found->bMissing = false;
    return found->pSlot.get();
}

std::string CObjectSlot::ListMembers() const {
    std::string strList;
    for (const MEMBER& member : m_Members) {
        strList += (strList.empty() ? "" : ", ") + std::string(member.pszKey);
    }
    return strList;
}

void CObjectSlot::End() {
    for (const MEMBER& member : m_Members) {
        if (member.bMissing) {
            throw CException(Quoted(member.pszKey) + " is missing");
        }
    }
    if (m_End) {
        m_End();
    }
}

CJsonSlot* CMapSlot::GetMember(const std::string& strKey) {
    m_pMember = m_MakeMember(strKey);
    return m_pMember.get();
}

} // namespace tessara
