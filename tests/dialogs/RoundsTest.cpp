#include <gtest/gtest.h>

#include <filesystem>

#include "tessara/dialogs/AddAbbreviationDialog.h"
#include "tessara/dialogs/ChooseCurvesDialog.h"
#include "tessara/dialogs/MonomerAbbreviationsDialog.h"
#include "tessara/dialogs/TextImportDialog.h"
#include "tessara/dialogs/TuningParametersDialog.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/cli/Folder.h"
#include "tests/support/PlotWindow.h"

namespace tessara {

namespace {

/// Opens a dialog, lets it be seen, and closes it.
template <class DIALOG>
void Play(DIALOG& dialog) {
    QTimer::singleShot(0, qApp, [&dialog] {
        QCoreApplication::processEvents();
        dialog.EndDialog(IDCANCEL);
    });
    dialog.DoModal();
}

TEST(AuxiliaryDialogs, LeaveNothingBehind) {
    RequireWindows();
    const CFolder folder;
    const std::string strFile = folder.Write("lines", "1\t2\n3\t4\n");
    int nRound = 0;
    CheckRounds([&] {
        switch (++nRound % 5) {
        case 0: {
            CTextImportDialog dialog;
            dialog.m_strFileName = strFile.c_str();
            Play(dialog);
            break;
        }
        case 1: {
            CChooseCurvesDialog dialog;
            dialog.m_computedNames.Add("S11");
            dialog.m_displayedNames.Add("S11");
            Play(dialog);
            break;
        }
        case 2: {
            CTuningParametersDialog dialog;
            dialog.AddTuningParameter(1, "Damping", 1, 50, 50);
            Play(dialog);
            break;
        }
        case 3: {
            CMonomerAbbreviationsDialog dialog;
            dialog.AddAbbreviation("S", "Styrene");
            Play(dialog);
            break;
        }
        default:
            CAddAbbreviationDialog dialog(nullptr, {"S", "Styrene"});
            Play(dialog);
        }
    });
}

} // namespace

} // namespace tessara
