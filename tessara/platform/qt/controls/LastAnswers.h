#pragma once

#include <QCache>
#include <map>
#include <utility>
#include <vector>

namespace tessara {

/// What another thread said last of the lines of a list, and what it is to be asked next.
///
/// A paint shows the last answers and asks for new ones. An answer that is another one causes a paint, which
/// alone takes it as it is: else lines that never look the same twice would be painted without end. At most
/// so many lines are kept, those seen last. Main thread.
///
/// WHAT is all that an answer depends on besides the line and the program's own data.
template <class KEY, class WHAT, class VALUE>
class CLastAnswers {
public:
    struct CWanted {
        KEY key;
        WHAT what;
        unsigned nRound = 0;
    };

    explicit CLastAnswers(int nMost) : m_known(nMost) {}

    void BeginPaint() { ++m_nPaint; }
    /// The program's data have changed: the next paint asks for all that it shows.
    void Outdate() { ++m_nRound; }
    void Clear() {
        m_known.clear();
        m_wanted.clear();
    }

    /// The last answer and what it was given to, or null. Wants a new one, unless this is the one to be shown
    /// now.
    const std::pair<WHAT, VALUE>* Find(const KEY& key, const WHAT& what) {
        const CKnown* const pKnown = m_known.object(key);
        if (!pKnown || pKnown->answer.first != what || pKnown->nRound != m_nRound ||
            pKnown->nPaint < m_nPaint) {
            if (m_wanted.size() >= static_cast<std::size_t>(m_known.maxCost())) {
                m_wanted.clear(); // somebody looks through all lines; what is seen is asked for again
            }
            m_wanted[key] = what;
        }
        return pKnown ? &pKnown->answer : nullptr;
    }
    bool Wants() const { return !m_wanted.empty(); }
    /// What to ask for.
    std::vector<CWanted> Take() {
        std::vector<CWanted> wanted;
        for (auto& [key, what] : std::exchange(m_wanted, {})) {
            wanted.push_back({key, what, m_nRound});
        }
        return wanted;
    }
    /// Keeps an answer; true when it is another one than before.
    bool Keep(const CWanted& wanted, VALUE value) {
        const CKnown* const pKnown = m_known.object(wanted.key);
        const bool bNew = !pKnown || pKnown->answer != std::pair(wanted.what, value);
        m_known.insert(
            wanted.key,
            new CKnown{{wanted.what, std::move(value)}, wanted.nRound, bNew ? m_nPaint + 1 : m_nPaint});
        return bNew;
    }

private:
    struct CKnown {
        std::pair<WHAT, VALUE> answer;
        unsigned nRound; ///< of the program's data
        unsigned nPaint; ///< the last paint that takes it as it is
    };

    QCache<KEY, CKnown> m_known;
    std::map<KEY, WHAT> m_wanted;
    unsigned m_nRound = 0;
    unsigned m_nPaint = 0;
};

} // namespace tessara
