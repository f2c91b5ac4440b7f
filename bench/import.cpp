// Importing a text file of a million lines, each an abscissa, a tab and an ordinate: the real dialog is
// opened, shown and closed with OK. The peer is import_pandas.py, which writes the file; TESSARA_IMPORT_FILE
// names it.
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "tessara/dialogs/TextImportDialog.h"
#include "tessara/platform/ui/threads/MessageMap.h"

namespace {

/// A user who presses OK as soon as the lines are seen.
class CQuickImport : public CTextImportDialog {
public:
    BOOL OnInitDialog() override {
        const BOOL bResult = CTextImportDialog::OnInitDialog();
        PostMessage(WM_USER);
        return bResult;
    }

protected:
    LRESULT OnSeen(WPARAM, LPARAM) {
        UpdateWindow();
        PostMessage(WM_COMMAND, IDOK);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CQuickImport, CTextImportDialog)
ON_MESSAGE(WM_USER, OnSeen)
END_MESSAGE_MAP()

void ImportText(benchmark::State& state) {
    constexpr int LINES = 1000000;
    const char* const pszFile = std::getenv("TESSARA_IMPORT_FILE");
    for (auto _ : state) {
        CQuickImport dialog;
        dialog.m_strFileName = pszFile ? pszFile : "";
        if (dialog.DoModal() != IDOK || dialog.m_curve.m_nPoints != LINES) {
            state.SkipWithError("The file was not imported.");
        }
    }
}
BENCHMARK(ImportText)->Name("TextImport/tessara")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1); // before the first window
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
