#include "cli/archive/ArchiveCommand.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>

#include <CLI/CLI.hpp>

#include "cli/archive/ArchiveText.h"
#include "tessara/document/BaseFile.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/files/ReplacementFile.h"

namespace tessara {

namespace {

constexpr UINT BLOCK = 1 << 16;
constexpr int READING = 1;
constexpr int WRITING = 2;

constexpr const char* EXAMPLES =
    R"(An archive is a folder of Base Variant files, such as a program keeps beside its executable. TITLE is the name of a file in
it, with or without its extension.

Examples:
  tessara archive list Archive
  tessara archive list Archive --json
  tessara archive show Archive bas00003
  tessara archive export Archive bas00003 data.bin
  tessara archive check Archive)";

/// The folder as the library takes it, with a slash at its end.
std::string FolderOf(const ARCHIVEOPTIONS& options) {
    std::error_code error;
    if (!std::filesystem::is_directory(options.strFolder, error)) {
        throw CException(options.strFolder +
                         (error ? ": cannot be read: " + error.message() : ": is not a folder"));
    }
    return options.strFolder.ends_with('/') ? options.strFolder : options.strFolder + "/";
}

/// The extensions of the files in the folder of which at least one is a variant.
std::set<std::string> ExtensionsOf(const std::string& strFolder) {
    std::set<std::string> extensions;
    for (const auto& entry : std::filesystem::directory_iterator(strFolder)) {
        const std::string strExtension = entry.path().extension().string();
        if (strExtension.size() > 1) {
            extensions.insert(strExtension.substr(1));
        }
    }
    std::erase_if(extensions, [&](const std::string& strExtension) {
        return CArchiveFolder(strFolder.c_str(), strExtension.c_str()).List().empty();
    });
    return extensions;
}

/// The one extension that the user means.
std::string ExtensionOf(const ARCHIVEOPTIONS& options, const std::string& strFolder) {
    if (!options.strExtension.empty()) {
        return options.strExtension.substr(options.strExtension.starts_with('.') ? 1 : 0);
    }
    const std::set<std::string> extensions = ExtensionsOf(strFolder);
    if (extensions.size() > 1) {
        throw CException(options.strFolder +
                         ": has variants of more than one extension; --extension says which");
    }
    if (extensions.empty()) {
        throw CException(options.strFolder + ": has no Base Variant files");
    }
    return *extensions.begin();
}

CArchiveFolder ArchiveOf(const ARCHIVEOPTIONS& options) {
    const std::string strFolder = FolderOf(options);
    return {strFolder.c_str(), ExtensionOf(options, strFolder).c_str()};
}

/// The title of a variant that is there.
std::string TitleIn(const CArchiveFolder& archive, const std::string& strTitle) {
    const std::string strExtension = archive.NameOf("");
    const std::string strBare = strTitle.ends_with(strExtension)
                                    ? strTitle.substr(0, strTitle.size() - strExtension.size())
                                    : strTitle;
    for (const ARCHIVEENTRY& entry : archive.List()) {
        if (strBare == entry.szFileTitle) {
            return strBare;
        }
    }
    throw CException(archive.PathOf(strBare) + ": is no variant of the archive");
}

void Print(const std::string& strText) {
    std::fputs(strText.c_str(), stdout);
}

/// The variant's file at its data, or an exception.
void OpenVariant(CBaseFile& file, const CArchiveFolder& archive, const ARCHIVEOPTIONS& options, int nMode) {
    CFileException error;
    if (!file.Open(archive.PathOf(TitleIn(archive, options.strTitle)).c_str(), nMode, FALSE, &error)) {
        throw error;
    }
}

/// Passes all that read gives to write.
void Copy(const std::function<UINT(void*, UINT)>& read, const std::function<void(const void*, UINT)>& write) {
    std::vector<BYTE> block(BLOCK);
    while (const UINT nRead = read(block.data(), BLOCK)) {
        write(block.data(), nRead);
    }
}

UINT ReadInput(void* pBytes, UINT nCount) {
    const auto nRead = static_cast<UINT>(std::fread(pBytes, 1, nCount, stdin));
    if (std::ferror(stdin)) {
        throw CException("standard input: cannot be read");
    }
    return nRead;
}

void Export(const CArchiveFolder& archive, const ARCHIVEOPTIONS& options) {
    CBaseFile variant;
    OpenVariant(variant, archive, options, READING);
    const auto read = [&](void* pBytes, UINT nCount) { return variant.Read(pBytes, nCount); };
    if (options.strFile == "-") {
        Copy(read, [](const void* pBytes, UINT nCount) { std::fwrite(pBytes, 1, nCount, stdout); });
        return;
    }
    CReplacementFile target(options.strFile.c_str());
    Copy(read, [&](const void* pBytes, UINT nCount) { target.Write(pBytes, nCount); });
    target.Close();
}

void Import(const CArchiveFolder& archive, const ARCHIVEOPTIONS& options) {
    CFile source;
    CFileException error;
    const bool bStandard = options.strFile == "-";
    if (!bStandard && !source.Open(options.strFile.c_str(), CFile::modeRead, &error)) {
        throw error;
    }
    CBaseFile variant;
    OpenVariant(variant, archive, options, WRITING);
    variant.SetLength(0); // header and comment stay
    Copy([&](void* pBytes,
             UINT nCount) { return bStandard ? ReadInput(pBytes, nCount) : source.Read(pBytes, nCount); },
         [&](const void* pBytes, UINT nCount) { variant.Write(pBytes, nCount); });
    variant.Close();
}

int Check(const ARCHIVEOPTIONS& options) {
    const CArchiveFolder archive = ArchiveOf(options);
    int nFaults = 0;
    for (const CArchiveFinding& finding : archive.Check()) {
        nFaults += !finding.strFault.empty();
        Print(ToLine(finding.strName) + ": " + (finding.strFault.empty() ? "whole" : finding.strFault) +
              "\n");
    }
    return nFaults ? EXIT_FAILURE : EXIT_SUCCESS;
}

CLI::App& AddAction(CLI::App& command, ARCHIVEOPTIONS& options, const char* pszName, const char* pszHelp) {
    CLI::App& action = *command.add_subcommand(pszName, pszHelp);
    action.add_option("DIR", options.strFolder, "the archive's folder")->required();
    action.add_option("--extension", options.strExtension,
                      "of the archive's files (otherwise that of the variants in the folder)");
    return action;
}

} // namespace

void DeclareArchiveOptions(CLI::App& command, ARCHIVEOPTIONS& options) {
    command.require_subcommand(1);
    AddAction(command, options, "list", "List Bases and variants")
        .add_flag("--json", options.bJson, "as JSON, in UTF-8");
    for (const auto& [pszName, pszHelp] :
         {std::pair("show", "Show the header of a variant"),
          std::pair("comment", "Print the comment of a variant"),
          std::pair("export", "Copy a variant's data into a file"),
          std::pair("import", "Replace a variant's data by a file's bytes")}) {
        CLI::App& action = AddAction(command, options, pszName, pszHelp);
        action.add_option("TITLE", options.strTitle, "the variant's file")->required();
        if (std::string_view(pszName) == "export" || std::string_view(pszName) == "import") {
            action.add_option("FILE", options.strFile, "the file of the data, - for the standard stream")
                ->required();
        }
    }
    AddAction(command, options, "check", "Say of each file what is wrong with it");
    command.footer(EXAMPLES);
}

int RunArchive(const CLI::App& command, const ARCHIVEOPTIONS& options) {
    const std::string strAction = command.get_subcommands().front()->get_name();
    if (strAction == "check") {
        return Check(options);
    }
    const CArchiveFolder archive = ArchiveOf(options);
    if (strAction == "list") {
        Print(options.bJson ? VariantJson(archive.List()) : VariantTable(archive.List()));
    } else if (strAction == "show") {
        Print(HeaderText(*archive.ReadHeader(TitleIn(archive, options.strTitle))));
    } else if (strAction == "comment") {
        Print(archive.ReadComment(TitleIn(archive, options.strTitle)).value_or("") + "\n");
    } else if (strAction == "export") {
        Export(archive, options);
    } else {
        Import(archive, options);
    }
    return EXIT_SUCCESS;
}

} // namespace tessara
