#pragma once

#include <sstream>
#include <string>

#include "tessara/numeric/MultipartCurve.h"
#include "tessara/platform/base/Exception.h"

/// The message with which an action refuses its input.
template <class ACTION>
std::string Refusal(ACTION action) {
    try {
        action();
        return "accepted";
    } catch (const CException& error) {
        return error.what();
    }
}

/// Each part as "colour: x y, x y", parts between bars, then the number of colours.
inline std::string Show(const CMultipartCurve* pCurve) {
    std::ostringstream text;
    for (int nPart = 0; pCurve && nPart < pCurve->m_nParts; nPart++) {
        const CCurvePartInfo& part = pCurve->m_pParts[nPart];
        text << part.nColor << ":";
        for (int i = part.nFirst; i < part.nFirst + part.nPoints; i++) {
            text << (i > part.nFirst ? ", " : " ") << pCurve->m_pX[i] << " " << pCurve->m_pY[i];
        }
        text << " | ";
    }
    return pCurve ? text.str() + std::to_string(pCurve->GetNumColors()) : "none";
}
