#include "cli/DiagramFile.h"

#include "cli/DiagramSlots.h"
#include "cli/InputError.h"
#include "cli/JsonReader.h"
#include "cli/TextFile.h"

namespace tessara {

DIAGRAM ReadDiagramFile(const std::string& strPath) {
    return ParseDiagram(ReadTextFile(strPath), strPath);
}

/// Keys have any order, so a newer version may be named after what is new in it; and for a file of quite
/// another kind its first unknown key is no good answer. Both are said first.
DIAGRAM ParseDiagram(std::string_view strText, const std::string& strName) {
    DIAGRAM diagram;
    try {
        ReadJson(strText, strName, *MakeDiagramSlot(diagram));
    } catch (const CInputError&) {
        ReadJson(strText, strName, *MakeHeaderSlot());
        throw;
    }
    return diagram;
}

} // namespace tessara
