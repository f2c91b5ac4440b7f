#pragma once

#include <string>
#include <vector>

#include "cli/DiagramFile.h"
#include "cli/DiagramOptions.h"

namespace flory {

/// A diagram's output as the options ask for: a diagram file for a name that ends with .json, otherwise the
/// picture that `tessara diagram` would draw from it.
class CDiagramFileOutput {
public:
    /// Checks the options. Throws CException, whose what() is one line for the user.
    explicit CDiagramFileOutput(const tessara::DIAGRAMOPTIONS& options);

    /// Puts what the options say in the place of what the diagram says, and writes it. The note goes into a
    /// diagram file. Throws CException and leaves no file behind then.
    void Write(tessara::DIAGRAM diagram, const std::vector<std::string>& note) const;

private:
    const tessara::DIAGRAMOPTIONS& m_options;
    bool m_bJson;
};

} // namespace flory
