#include "cli/DiagramSlots.h"

#include <cmath>

#include "cli/InputError.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

constexpr const char* FORMAT_NAME = "tessara-diagram";
constexpr double FORMAT_VERSION = 1;
constexpr double MAX_COLOR = 5;

/// What the two branches of a curve are called.
struct BRANCHES {
    const char* pszFirst;
    const char* pszOther;
};

constexpr BRANCHES BINODAL_BRANCHES = {"physical", "non-physical"};
constexpr BRANCHES SPINODAL_BRANCHES = {"trivial", "nontrivial"};

void CheckFormatName(const std::string& strName) {
    if (strName != FORMAT_NAME) {
        throw CException("must be " + Quoted(FORMAT_NAME));
    }
}

void CheckVersion(double dVersion) {
    if (!(dVersion >= 1) || dVersion != std::floor(dVersion)) {
        throw CException("must be a whole number from 1");
    }
    if (dVersion > FORMAT_VERSION) {
        throw CException(FormatText("version %.15g is newer than this program, which reads version %g",
                                    dVersion, FORMAT_VERSION));
    }
}

void RequireHeader(CObjectSlot& file) {
    file.Require<CTextSlot>("format", CheckFormatName);
    file.Require<CNumberSlot>("version", CheckVersion);
}

/// The numbers of a scale while they are read.
struct SCALEFIELDS {
    std::optional<double> from;
    std::optional<double> to;
    std::optional<double> step;
    std::optional<double> exponent;
};

JSONSLOT MakeScaleSlot(std::optional<AXISSCALE>& target) {
    const auto pFields = std::make_shared<SCALEFIELDS>();
    auto pSlot = std::make_unique<CObjectSlot>([pFields, &target] {
        target = MakeAxisScale(*pFields->from, *pFields->to, *pFields->step, pFields->exponent.value_or(0),
                               {"\"from\"", "\"to\"", "\"step\"", "\"exponent\""});
    });
    pSlot->Require<CNumberSlot>("from", pFields->from);
    pSlot->Require<CNumberSlot>("to", pFields->to);
    pSlot->Require<CNumberSlot>("step", pFields->step);
    pSlot->Allow<CNumberSlot>("exponent", pFields->exponent);
    return pSlot;
}

JSONSLOT MakeAxisSlot(DIAGRAMAXIS& axis) {
    auto pSlot = std::make_unique<CObjectSlot>();
    pSlot->Allow<CTextSlot>("symbol", axis.symbol);
    pSlot->Allow<CTextSlot>("format", [&axis](const std::string& strFormat) {
        if (!FormatAccepts(strFormat.c_str(), "f")) {
            throw CException("must be a printf format for one number");
        }
        axis.format = strFormat;
    });
    pSlot->Add("scale", MakeScaleSlot(axis.scale), false);
    return pSlot;
}

void SetColor(DIAGRAMPART& part, int nColor) {
    if (part.bHasColor) {
        throw CException("\"branch\" and \"color\" exclude each other");
    }
    part.nColor = nColor;
    part.bHasColor = true;
}

void SetBranch(DIAGRAMPART& part, const BRANCHES& branches, const std::string& strBranch) {
    if (strBranch != branches.pszFirst && strBranch != branches.pszOther) {
        throw CException("must be " + Quoted(branches.pszFirst) + " or " + Quoted(branches.pszOther));
    }
    SetColor(part, strBranch == branches.pszFirst ? 0 : 1);
}

void SetColorNumber(DIAGRAMPART& part, double dColor) {
    if (!(dColor >= 0 && dColor <= MAX_COLOR) || dColor != std::floor(dColor)) {
        throw CException("must be a whole number from 0 to 5");
    }
    SetColor(part, static_cast<int>(dColor));
}

void CheckLength(const DIAGRAMPART& part, const std::vector<double>& column, const std::string& strName) {
    if (column.size() != part.x.size()) {
        throw CException(Quoted(strName) + " has " + std::to_string(column.size()) + " numbers, \"x\" has " +
                         std::to_string(part.x.size()));
    }
}

void CheckLengths(const DIAGRAMPART& part) {
    CheckLength(part, part.y, "y");
    if (!part.shadow.empty()) {
        CheckLength(part, part.shadow, "shadow");
    }
    for (const auto& [strName, column] : part.columns) {
        CheckLength(part, column, strName);
    }
}

/// `shadow` is null for a curve that has none.
JSONSLOT MakePartSlot(DIAGRAMPART& part, const BRANCHES& branches, std::vector<double>* pShadow) {
    auto pSlot = std::make_unique<CObjectSlot>([&part] { CheckLengths(part); });
    pSlot->Allow<CTextSlot>("branch",
                            [&](const std::string& strBranch) { SetBranch(part, branches, strBranch); });
    pSlot->Allow<CNumberSlot>("color", [&part](double dColor) { SetColorNumber(part, dColor); });
    pSlot->Require<CNumbersSlot>("x", part.x, CNumbersSlot::Gaps::Null);
    if (pShadow) {
        pSlot->Allow<CNumbersSlot>("shadow", *pShadow, CNumbersSlot::Gaps::Null);
    }
    pSlot->Require<CNumbersSlot>("y", part.y, CNumbersSlot::Gaps::Null);
    pSlot->Allow<CMapSlot>("columns", [&part](const std::string& strName) {
        return std::make_unique<CNumbersSlot>(part.columns[strName], CNumbersSlot::Gaps::Null);
    });
    return pSlot;
}

void CheckBranches(const DIAGRAMCURVE& curve) {
    for (const DIAGRAMPART& part : curve.parts) {
        if (part.bHasColor != curve.HasBranches()) {
            throw CException("either all parts or none must have a \"branch\" or \"color\"");
        }
    }
}

/// Parts move while the list grows, but only between the slots of two of them.
JSONSLOT MakeCurveSlot(DIAGRAMCURVE& curve, const BRANCHES& branches, bool bShadow) {
    return std::make_unique<CListSlot>(
        "a list of parts",
        [&curve, &branches, bShadow] {
            DIAGRAMPART& part = curve.parts.emplace_back();
            return MakePartSlot(part, branches, bShadow ? &part.shadow : nullptr);
        },
        [&curve] { CheckBranches(curve); });
}

JSONSLOT MakePointsSlot(DIAGRAMPOINTS& points) {
    return std::make_unique<CListSlot>("a list of points", [&points] {
        return std::make_unique<CPairSlot>("[x, y]", [&points](double dX, double dY) {
            points.x.push_back(dX);
            points.y.push_back(dY);
        });
    });
}

JSONSLOT MakeRangeSlot(double& dMin, double& dMax) {
    return std::make_unique<CPairSlot>("[from, to]", [&](double dFrom, double dTo) {
        if (!(dFrom < dTo)) {
            throw CException("the first number must be below the second");
        }
        dMin = dFrom;
        dMax = dTo;
    });
}

JSONSLOT MakeZoomSlot(std::optional<PLOTWINDOW>& zoom) {
    const auto pWindow = std::make_shared<PLOTWINDOW>();
    auto pSlot = std::make_unique<CObjectSlot>([pWindow, &zoom] { zoom = *pWindow; });
    pSlot->Add("x", MakeRangeSlot(pWindow->dXMin, pWindow->dXMax), true);
    pSlot->Add("y", MakeRangeSlot(pWindow->dYMin, pWindow->dYMax), true);
    return pSlot;
}

JSONSLOT MakeBoundariesSlot(DIAGRAM& diagram) {
    auto pSlot = std::make_unique<CObjectSlot>();
    pSlot->Allow<CNumberSlot>("left", diagram.leftBoundary);
    pSlot->Allow<CNumberSlot>("right", diagram.rightBoundary);
    return pSlot;
}

void AllowElements(CObjectSlot& file, DIAGRAM& diagram) {
    file.Add("binodal", MakeCurveSlot(diagram.binodal, BINODAL_BRANCHES, true), false);
    file.Add("spinodal", MakeCurveSlot(diagram.spinodal, SPINODAL_BRANCHES, false), false);
    file.Add("critical", MakePointsSlot(diagram.critical), false);
    file.Add("lifshitz", MakePointsSlot(diagram.lifshitz), false);
    file.Add("multiphase", MakePointsSlot(diagram.multiphase), false);
}

void AllowLook(CObjectSlot& file, DIAGRAM& diagram) {
    file.Add("zoom", MakeZoomSlot(diagram.zoom), false);
    file.Add("boundaries", MakeBoundariesSlot(diagram), false);
    file.Allow<CFlagSlot>("legend", diagram.bLegend);
    file.Allow<CFlagSlot>("caption", diagram.bCaption);
    file.Allow<CFlagSlot>("monochrome", diagram.bMonochrome);
    file.Allow<CFlagSlot>("multiphasePoints", diagram.bMultiphasePoints);
}

} // namespace

JSONSLOT MakeDiagramSlot(DIAGRAM& diagram) {
    auto pFile = std::make_unique<CObjectSlot>();
    RequireHeader(*pFile);
    pFile->Allow<CAnySlot>("note");
    pFile->Allow<CTextSlot>("name", diagram.name);
    pFile->Allow<CTextSlot>("slide", diagram.slide);
    pFile->Add("x", MakeAxisSlot(diagram.x), false);
    pFile->Add("y", MakeAxisSlot(diagram.y), false);
    AllowElements(*pFile, diagram);
    AllowLook(*pFile, diagram);
    return pFile;
}

JSONSLOT MakeHeaderSlot() {
    auto pFile = std::make_unique<CObjectSlot>();
    RequireHeader(*pFile);
    pFile->AllowOthers();
    return pFile;
}

} // namespace tessara
