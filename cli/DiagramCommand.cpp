#include "cli/DiagramCommand.h"

#include "cli/DiagramFile.h"
#include "cli/DiagramOutput.h"
#include "cli/DiagramOverrides.h"
#include "cli/Picture.h"
#include "cli/TextFile.h"

namespace tessara {

void RunDiagram(const DIAGRAMOPTIONS& options) {
    const CPictureSize size(options.strSize, options.dDotsPerInch);
    FormatOfFile(options.strOutput);
    const CDiagramOverrides overrides(options);
    DIAGRAM diagram = ReadDiagramFile(options.strFile);
    overrides.ApplyTo(diagram);
    diagram.name = diagram.name.value_or(FileStem(options.strFile));
    CDiagramOutput output(diagram);
    DrawOutput(output, size, options.strOutput);
}

} // namespace tessara
