#include <algorithm>

#include "tessara/dialogs/MonomerAbbreviationsDialog.h"
#include "tessara/dialogs/MonomerFile.h"
#include "tests/cli/Folder.h"
#include "tests/dialogs/DialogRun.h"
#include "tests/dialogs/MonomersModel.h"

namespace tessara {

namespace {

using models::CMonomer;
using models::CMonomersGenerator;
using models::CMonomersModel;
using models::CProfileModel;

std::vector<CMonomer> ToTable(const CArray<CMonomerAbbreviation>& entries) {
    std::vector<CMonomer> table;
    for (int i = 0; i < entries.GetSize(); ++i) {
        table.push_back({std::string(entries[i].m_strFullName), std::string(entries[i].m_strShortName)});
    }
    return table;
}

TEST(MonomersModel, SortsRandomTablesAlike) {
    const int nTables = TrialCount("TESSARA_MONOMER_TABLES", 3000);
    for (int i = 0; i < nTables && !::testing::Test::HasFailure(); ++i) {
        CMonomersModel model = CMonomersGenerator(static_cast<unsigned>(i)).Table();
        for (std::size_t k = 0; k < model.table.size(); ++k) { // tells entries of equal keys apart
            CMonomer& monomer = model.table[k];
            (model.bSortByName ? monomer.strShortName : monomer.strFullName) += std::to_string(k);
        }
        CMonomerAbbreviationsDialog dialog;
        for (const CMonomer& monomer : model.table) {
            dialog.AddAbbreviation(monomer.strShortName.c_str(), monomer.strFullName.c_str());
        }
        dialog.SortAbbreviations(model.bSortByName);
        model.Sort();
        EXPECT_TRUE(ToTable(dialog.m_abbreviations) == model.table) << "table " << i;
    }
}

TEST(MonomersModel, ReadsRandomFilesAlikeAndKeepsWhatIsNotTheTable) {
    const CFolder folder;
    const int nFiles = TrialCount("TESSARA_MONOMER_FILES", 50);
    for (int i = 0; i < nFiles && !::testing::Test::HasFailure(); ++i) {
        CMonomersGenerator generator(static_cast<unsigned>(i));
        const std::string strBefore = generator.File(generator.Table());
        const CMonomerFile file(folder.Write("file.ini", strBefore), folder.Path("file.ini"));
        CArray<CMonomerAbbreviation> entries;
        CProfileModel model(strBefore);
        SCOPED_TRACE(testing::Message() << "file " << i << ":\n" << strBefore);
        EXPECT_EQ(file.Read(entries), model.Table().bSortByName);
        EXPECT_TRUE(ToTable(entries) == model.Table().table);

        const CMonomersModel table = generator.Table();
        entries.RemoveAll();
        for (const CMonomer& monomer : table.table) {
            entries.Add({monomer.strShortName.c_str(), monomer.strFullName.c_str()});
        }
        file.Write(table.bSortByName, entries);
        for (const auto& [strKey, strValue] : table.Written()) {
            model.Write("List", strKey, strValue);
        }
        EXPECT_EQ(CProfileModel(folder.Read("file.ini")).Compared(), model.Compared());
    }
}

} // namespace

} // namespace tessara
