#include <bit>
#include <cstdint>

#include "tessara/dialogs/TextImportDialog.h"
#include "tests/cli/Folder.h"
#include "tests/dialogs/DialogRun.h"
#include "tests/dialogs/TextFileGenerator.h"
#include "tests/dialogs/TextImportModel.h"

namespace tessara {

namespace {

using models::CTextFileGenerator;
using models::CTextImportModel;
using EVerdict = CTextImportModel::EVerdict;

constexpr UINT TEXT_IMPORT = CTextImportDialog::TEMPLATE;

class CImport : public CTextImportDialog {
public:
    using CTextImportDialog::GetMaxNumOfLineEntries;

    std::vector<std::vector<std::string>> Preview() const {
        std::vector<std::vector<std::string>> rows(static_cast<std::size_t>(m_list.GetItemCount()));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            for (int k = 0; k <= m_nColumns; ++k) {
                rows[i].emplace_back(m_list.GetItemText(static_cast<int>(i), k).View());
            }
        }
        return rows;
    }
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (int i = 0; i < m_lines.GetSize(); ++i) {
            lines.emplace_back(m_lines[i].View());
        }
        return lines;
    }
    CTextImportModel::CColumns Columns() const {
        CTextImportModel::CColumns columns{{m_curve.m_pX, m_curve.m_pX + m_curve.m_nPoints}};
        for (int k = 0; k < m_curve.m_nDimensions; ++k) {
            columns.emplace_back(m_curve.m_ppY[k], m_curve.m_ppY[k] + m_curve.m_nPoints);
        }
        return columns;
    }
};

bool SameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (a != a && b != b);
}

bool SameBits(const std::vector<double>& a, const std::vector<double>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      static_cast<bool (*)(double, double)>(SameBits));
}

/// A cell shows a text up to its first zero byte.
std::vector<std::vector<std::string>> Cells(std::vector<std::vector<std::string>> rows) {
    for (auto& row : rows) {
        for (std::string& strCell : row) {
            strCell.resize(std::min(strCell.size(), strCell.find('\0')));
        }
    }
    return rows;
}

/// The first items of two lists that differ, in words; nothing when the lists are the same.
template <typename T>
std::string FirstDifference(const std::vector<T>& a, const std::vector<T>& b) {
    const auto [pA, pB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto described = [](const std::vector<T>& list, auto p) {
        return p == list.end() ? std::string("nothing") : testing::PrintToString(*p);
    };
    return pA == a.end() && pB == b.end()
               ? ""
               : std::to_string(pA - a.begin()) + ": " + described(a, pA) + " is not " + described(b, pB);
}

class TextImportModel : public ::testing::Test {
protected:
    /// Imports a file by the dialog and by the model, and compares all that a user and a program see of it.
    void Try(const CTextFileGenerator::CFile& file) {
        CImport dialog;
        dialog.m_strFileName = m_folder.Write("file.txt", file.strBytes).c_str();
        dialog.m_cDelimiter = file.cDelimiter;
        dialog.m_nColumns = file.nColumns;
        const CTextImportModel model{file.cDelimiter, file.nColumns};
        const CTextImportModel::CResult result = model.Import(file.strBytes);
        CDialogRun run;
        const auto nEnd = run.Do(dialog, TEXT_IMPORT, [&] {
            EXPECT_EQ(FirstDifference(dialog.Preview(), Cells(model.Preview(file.strBytes))), "");
            EXPECT_EQ(dialog.GetMaxNumOfLineEntries(), model.MaxLineEntries(file.strBytes));
            QTest::mouseClick(&ControlOf(TEXT_IMPORT, IDOK), Qt::LeftButton);
            return result.eVerdict == EVerdict::Accepted;
        });
        EXPECT_EQ(FirstDifference(dialog.Lines(), CTextImportModel::Lines(file.strBytes)), "");
        ++m_nVerdicts[static_cast<int>(result.eVerdict)];
        EXPECT_EQ(nEnd, result.eVerdict == EVerdict::Accepted ? IDOK : IDCANCEL);
        EXPECT_EQ(run.m_messages, Messages(result.eVerdict));
        if (result.eVerdict != EVerdict::NonNumeric) {
            EXPECT_TRUE(std::ranges::equal(dialog.Columns(), result.columns,
                                           [](const auto& a, const auto& b) { return SameBits(a, b); }));
        }
    }
    static std::vector<std::string> Messages(EVerdict eVerdict) {
        switch (eVerdict) {
        case EVerdict::NonNumeric:
            return {"The file contains non-numeric text data. Please specify another file and try again."};
        case EVerdict::Refused:
            return {"The curve does not satisfy the conditions stated in the manual.\n"
                    "Please read the manual and/or specify another file."};
        default:
            return {};
        }
    }

    const CFolder m_folder;
    int m_nVerdicts[3] = {};
};

TEST_F(TextImportModel, SaysTheSameOfRandomFiles) {
    const int nFiles = TrialCount("TESSARA_TEXT_FILES", 120);
    for (int i = 0; i < nFiles && !HasFailure(); ++i) {
        const CTextFileGenerator::CFile file = CTextFileGenerator(static_cast<unsigned>(i)).Next();
        SCOPED_TRACE(testing::Message() << "file " << i << ", " << file.nColumns << " columns, delimiter "
                                        << testing::PrintToString(file.cDelimiter) << ":\n"
                                        << testing::PrintToString(file.strBytes));
        Try(file);
    }
    for (const int nFilesOfVerdict : m_nVerdicts) {
        EXPECT_TRUE(HasFailure() || nFilesOfVerdict >= nFiles / 10) << nFilesOfVerdict;
    }
}

} // namespace

} // namespace tessara
