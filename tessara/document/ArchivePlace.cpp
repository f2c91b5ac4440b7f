#include "tessara/document/ArchivePlace.h"

#include <unistd.h>

#include "tessara/platform/ui/frames/ProgramFolder.h"

namespace tessara {

namespace {

constexpr const char* ARCHIVE = "Archive/";

} // namespace

std::string ArchiveDirectory() {
    const std::string strBeside = FolderOfExecutable();
    const bool bThere = access((strBeside + ARCHIVE).c_str(), F_OK) == 0;
    return (CanWriteIn(bThere ? strBeside + ARCHIVE : strBeside) ? strBeside : UserDataFolder()) + ARCHIVE;
}

} // namespace tessara
