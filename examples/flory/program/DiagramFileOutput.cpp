#include "examples/flory/program/DiagramFileOutput.h"

#include "cli/DiagramOutput.h"
#include "cli/DiagramOverrides.h"
#include "cli/DiagramText.h"
#include "cli/InputError.h"
#include "cli/Picture.h"
#include "examples/flory/program/OutputText.h"

namespace flory {

namespace {

bool IsJson(const std::string& strPath) {
    CString strLower(strPath);
    strLower.MakeLower();
    if (strLower.View().ends_with(".json")) {
        return true;
    }
    try {
        tessara::FormatOfFile(strPath);
    } catch (const tessara::CInputError&) {
        throw tessara::CInputError(strPath, 0, 0, "the name must end with .json, .png, .svg, .pdf or .wmf");
    }
    return false;
}

} // namespace

CDiagramFileOutput::CDiagramFileOutput(const tessara::DIAGRAMOPTIONS& options)
    : m_options(options), m_bJson(IsJson(options.strOutput)) {
    tessara::CPictureSize(options.strSize, options.dDotsPerInch);
    tessara::CDiagramOverrides{options};
    CheckWritable(options.strOutput);
}

void CDiagramFileOutput::Write(tessara::DIAGRAM diagram, const std::vector<std::string>& note) const {
    tessara::CDiagramOverrides(m_options).ApplyTo(diagram);
    if (m_bJson) {
        WriteText(m_options.strOutput, tessara::DiagramText(diagram, note));
        return;
    }
    tessara::CDiagramOutput output(diagram);
    tessara::DrawOutput(output, {m_options.strSize, m_options.dDotsPerInch}, m_options.strOutput);
}

} // namespace flory
