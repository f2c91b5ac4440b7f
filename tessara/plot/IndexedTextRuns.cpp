#include "tessara/plot/IndexedTextRuns.h"

#include "tessara/platform/base/Text.h"

namespace tessara {

namespace {

constexpr std::string_view CONTROLS = "NHLGjgbiB";

} // namespace

std::vector<CIndexedRun> ParseIndexedText(std::string_view strText) {
    std::vector<CIndexedRun> runs;
    std::string strRun;
    const auto close = [&](char chControl) {
        runs.push_back({chControl, std::string(CutText(strRun, MAX_RUN_BYTES))});
        strRun.clear();
    };
    const auto takeCharacter = [&] {
        const std::size_t nLength = CharacterLength(strText);
        strRun.append(strText.substr(0, nLength));
        strText.remove_prefix(nLength);
    };
    while (!strText.empty()) {
        if (strText.front() != '~') {
            takeCharacter();
            continue;
        }
        strText.remove_prefix(1);
        if (!strText.empty() && CONTROLS.find(strText.front()) != std::string_view::npos) {
            close(strText.front());
            strText.remove_prefix(1);
        } else {
            strText.remove_prefix(CharacterLength(strText));
            takeCharacter();
        }
    }
    if (!strRun.empty()) {
        close(0);
    }
    return runs;
}

} // namespace tessara
