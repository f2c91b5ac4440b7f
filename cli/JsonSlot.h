#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tessara {

/// A place of a JSON text that takes one value. What is read goes straight into the variables that slots are
/// made for, which must outlive them; a problem is thrown as CException, to which the reader adds where it
/// is.
///
/// The base takes nothing. A function that is not overridden, or returns false or null, refuses its kind of
/// value.
class CJsonSlot {
public:
    CJsonSlot() = default;
    virtual ~CJsonSlot() = default;
    CJsonSlot(const CJsonSlot&) = delete;
    CJsonSlot& operator=(const CJsonSlot&) = delete;

    /// What the value must be, as in "a number".
    virtual const char* GetExpected() const = 0;

    virtual bool TakeNull() { return false; }
    virtual bool TakeFlag(bool) { return false; }
    virtual bool TakeNumber(double) { return false; }
    virtual bool TakeText(const std::string&) { return false; }
    virtual bool TakesObject() const { return false; }
    virtual bool TakesList() const { return false; }

    /// The slot of an object's member; null when there is none of that name.
    virtual CJsonSlot* GetMember(const std::string&) { return nullptr; }
    /// The names that GetMember knows, for a message.
    virtual std::string ListMembers() const { return {}; }
    /// The slot of a list's next element. REQUIRES: TakesList().
    virtual CJsonSlot* GetElement() { return nullptr; }
    /// The object or list is complete.
    virtual void End() {}
};

using JSONSLOT = std::unique_ptr<CJsonSlot>;

/// A text of one line: at most 1000 bytes, without control characters.
class CTextSlot : public CJsonSlot {
public:
    explicit CTextSlot(std::function<void(const std::string&)> take) : m_Take(std::move(take)) {}
    explicit CTextSlot(std::optional<std::string>& target);
    const char* GetExpected() const override { return "a text"; }
    bool TakeText(const std::string& strText) override;

private:
    std::function<void(const std::string&)> m_Take;
};

class CFlagSlot : public CJsonSlot {
public:
    explicit CFlagSlot(bool& bTarget) : m_bTarget(bTarget) {}
    const char* GetExpected() const override { return "true or false"; }
    bool TakeFlag(bool bValue) override;

private:
    bool& m_bTarget;
};

class CNumberSlot : public CJsonSlot {
public:
    explicit CNumberSlot(std::function<void(double)> take) : m_Take(std::move(take)) {}
    explicit CNumberSlot(std::optional<double>& target);
    const char* GetExpected() const override { return "a number"; }
    bool TakeNumber(double dValue) override;

private:
    std::function<void(double)> m_Take;
};

/// A list of numbers.
class CNumbersSlot : public CJsonSlot {
public:
    enum class Gaps { None, Null }; ///< whether null stands for a missing number, which becomes NaN

    CNumbersSlot(std::vector<double>& target, Gaps gaps) : m_Element(target, gaps) {}
    const char* GetExpected() const override { return "a list of numbers"; }
    bool TakesList() const override { return true; }
    CJsonSlot* GetElement() override { return &m_Element; }

private:
    class CElement : public CJsonSlot {
    public:
        CElement(std::vector<double>& target, Gaps gaps) : m_Target(target), m_Gaps(gaps) {}
        const char* GetExpected() const override;
        bool TakeNull() override;
        bool TakeNumber(double dValue) override;

    private:
        std::vector<double>& m_Target;
        Gaps m_Gaps;
    };

    CElement m_Element;
};

/// Exactly two numbers, handed on together.
class CPairSlot : public CJsonSlot {
public:
    /// pszExpected is what the pair is called, as in "[x, y]".
    CPairSlot(const char* pszExpected, std::function<void(double, double)> take);
    const char* GetExpected() const override { return m_pszExpected; }
    bool TakesList() const override { return true; }
    CJsonSlot* GetElement() override;
    void End() override;

private:
    const char* m_pszExpected;
    std::function<void(double, double)> m_Take;
    std::vector<double> m_Values;
    CNumbersSlot m_Numbers;
};

/// A list of any length, each of whose elements is read into a slot of its own.
class CListSlot : public CJsonSlot {
public:
    CListSlot(const char* pszExpected, std::function<JSONSLOT()> makeElement, std::function<void()> end = {});
    const char* GetExpected() const override { return m_pszExpected; }
    bool TakesList() const override { return true; }
    CJsonSlot* GetElement() override;
    void End() override;

private:
    const char* m_pszExpected;
    std::function<JSONSLOT()> m_MakeElement;
    std::function<void()> m_End;
    JSONSLOT m_pElement; ///< the current one
};

/// An object of named members, in any order.
///
///     auto pPoint = std::make_unique<CObjectSlot>();
///     pPoint->Require<CNumberSlot>("x", point.x);
///     pPoint->Allow<CTextSlot>("label", point.label);
class CObjectSlot : public CJsonSlot {
public:
    /// `end` is called when all members that are required were there.
    explicit CObjectSlot(std::function<void()> end = {}) : m_End(std::move(end)) {}
    template <class SLOT, class... ARGS>
    void Allow(const char* pszKey, ARGS&&... arguments) {
        Add(pszKey, std::make_unique<SLOT>(std::forward<ARGS>(arguments)...), false);
    }
    template <class SLOT, class... ARGS>
    void Require(const char* pszKey, ARGS&&... arguments) {
        Add(pszKey, std::make_unique<SLOT>(std::forward<ARGS>(arguments)...), true);
    }
    void Add(const char* pszKey, JSONSLOT pSlot, bool bRequired);
    /// Passes over members of any other name, which are refused otherwise.
    void AllowOthers();

    const char* GetExpected() const override { return "an object"; }
    bool TakesObject() const override { return true; }
    CJsonSlot* GetMember(const std::string& strKey) override;
    std::string ListMembers() const override;
    void End() override;

private:
    struct MEMBER {
        const char* pszKey;
        JSONSLOT pSlot;
        bool bMissing; ///< required and not there yet
    };

    std::vector<MEMBER> m_Members;
    std::function<void()> m_End;
    JSONSLOT m_pOthers;
};

/// An object with members of any names.
class CMapSlot : public CJsonSlot {
public:
    explicit CMapSlot(std::function<JSONSLOT(const std::string& strKey)> makeMember)
        : m_MakeMember(std::move(makeMember)) {}
    const char* GetExpected() const override { return "an object"; }
    bool TakesObject() const override { return true; }
    CJsonSlot* GetMember(const std::string& strKey) override;

private:
    std::function<JSONSLOT(const std::string& strKey)> m_MakeMember;
    JSONSLOT m_pMember; ///< the current one
};

/// Passes over any value.
class CAnySlot : public CJsonSlot {
public:
    const char* GetExpected() const override { return "a value"; }
    bool TakeNull() override { return true; }
    bool TakeFlag(bool) override { return true; }
    bool TakeNumber(double) override { return true; }
    bool TakeText(const std::string&) override { return true; }
    bool TakesObject() const override { return true; }
    bool TakesList() const override { return true; }
    CJsonSlot* GetMember(const std::string&) override { return this; }
    CJsonSlot* GetElement() override { return this; }
};

} // namespace tessara
