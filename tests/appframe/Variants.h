#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "tessara/document/BaseVariant.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/MenuResources.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tessara/platform/ui/windows/System.h"
#include "tests/cli/Folder.h"
#include "tests/document/Hands.h"

namespace tessara {

/// A document with items, of which "Solvent" and "Spinodal" begin switched off.
class CItemsDocument : public CBaseVariant {
    DECLARE_DYNCREATE(CItemsDocument)
public:
    std::vector<int> m_choices; ///< with which SetBaseVariant was called
    std::string m_strText;

    int SetBaseVariant(int nChoice) override {
        m_choices.push_back(nChoice);
        return 0;
    }
    void Serialize(CArchive& ar) override {
        if (!ar.IsStoring()) {
            m_strText.assign(ar.GetRemaining(), ' ');
            ar.Read(m_strText.data(), static_cast<UINT>(m_strText.size()));
        }
    }
    BOOL OnNewDocument() override {
        FillInterfaceArrays();
        return CBaseVariant::OnNewDocument();
    }
    const AFP_INPUT_INFORMATION* GetInputInformation() const override {
        static const AFP_INTERFACE_ENTRY s_rows[] = {
            {701, 2, 0, TRUE},  {702, -1, 0, TRUE},
            {703, 4, 0, FALSE}, {704, 0, 0, TRUE},
            {705, -1, 0, TRUE}, {706, 7, 0, TRUE},
            {707, 8, 0, TRUE},  {END_OF_INTERFACE_ENTRIES, -1, 0, FALSE}};
        static const AFP_INPUT_INFORMATION s_table = {s_rows, 0};
        return &s_table;
    }
    const AFP_OUTPUT_INFORMATION* GetOutputInformation() const override {
        static const AFP_INTERFACE_ENTRY s_rows[] = {{711, 11, 0, TRUE},
                                                     {712, 12, 0, FALSE},
                                                     {713, -1, 0, TRUE},
                                                     {714, 14, 0, TRUE},
                                                     {END_OF_INTERFACE_ENTRIES, -1, 0, FALSE}};
        static const AFP_OUTPUT_INFORMATION s_table = {s_rows, 0};
        return &s_table;
    }
};

constexpr UINT IDR_FRAME = 128;
inline constexpr CMenuEntry FILE_MENU[] = {{"E&xit", 0xE141}};
inline constexpr CMenuEntry BAR[] = {{"&File", FILE_MENU}};
inline constexpr CMenuResource MENUS[] = {{IDR_FRAME, BAR}};
inline constexpr CStringResource STRINGS[] = {{IDR_FRAME, "Flory\n\nVariant\nVariants (*.bva)\n.bva\n"},
                                              {701, "Polymer"},
                                              {702, "Date"},
                                              {703, "Solvent"},
                                              {704, "Chain length"},
                                              {705, "Author"},
                                              {706, "Temperatures"},
                                              {707, "Interactions"},
                                              {711, "Cloud points"},
                                              {712, "Spinodal"},
                                              {713, "Remarks"},
                                              {714, "Critical point"}};

/// A program with such documents and a kind of view. Its settings are in a folder of its own; its archive
/// lies beside this executable and is empty.
template <class VIEW>
class CVariantProgram {
public:
    explicit CVariantProgram(CRuntimeClass* pViewClass) {
        static const bool s_bAdded = (AddMenuResources(MENUS), AddStringResources(STRINGS), true);
        static_cast<void>(s_bAdded);
        RequireWindows(); // a test begins to wait before there is a window
        setenv("XDG_CONFIG_HOME", m_settings.Path("config").c_str(), 1);
        m_app.SetRegistryKey("Tests");
        m_app.AddDocTemplate(new CSingleDocTemplate(IDR_FRAME, RUNTIME_CLASS(CItemsDocument),
                                                    RUNTIME_CLASS(CFrameWnd), pViewClass));
        CItemsDocument archive;
        CString strDirectory;
        CString strExtension;
        archive.GetArchiveStrings(strDirectory, strExtension);
        m_strArchive = strDirectory;
        std::filesystem::remove_all(m_strArchive);
        std::filesystem::create_directories(m_strArchive);
    }
    ~CVariantProgram() {
        Close();
        std::filesystem::remove_all(m_strArchive);
        unsetenv("XDG_CONFIG_HOME");
    }
    CVariantProgram(const CVariantProgram&) = delete;
    CVariantProgram& operator=(const CVariantProgram&) = delete;

    /// Ends the frame; the program goes on.
    void Close() {
        if (m_app.m_pMainWnd) {
            m_app.m_pMainWnd->DestroyWindow();
            TakeExitCode();
        }
    }
    CFrameWnd& Frame() { return static_cast<CFrameWnd&>(*m_app.m_pMainWnd); }
    VIEW& View() { return static_cast<VIEW&>(*Frame().GetActiveView()); }
    CItemsDocument& Document() { return static_cast<CItemsDocument&>(*Frame().GetActiveDocument()); }

    const CFolder m_settings;
    CWinApp m_app{"Flory"};
    std::string m_strArchive; ///< with a slash at its end
};

} // namespace tessara
