#pragma once

#include <optional>

#include "cli/DiagramFile.h"
#include "cli/DiagramOptions.h"

namespace tessara {

/// What the command line says in the place of what a diagram says. The constructor throws CException, naming
/// the option, for a region or a scale that is none. The options must outlive the object.
class CDiagramOverrides {
public:
    explicit CDiagramOverrides(const DIAGRAMOPTIONS& options);

    /// A zoom window replaces that of the diagram, and so does a scale.
    void ApplyTo(DIAGRAM& diagram) const;

private:
    const DIAGRAMOPTIONS& m_Options;
    std::optional<PLOTWINDOW> m_Zoom;
    std::optional<AXISSCALE> m_XScale;
    std::optional<AXISSCALE> m_YScale;
};

} // namespace tessara
