#include "tessara/platform/gdi/GraphicsException.h"

#include <utility>

CGraphicsException::CGraphicsException(Cause eCause, std::string strMessage)
    : CException(std::move(strMessage)), m_cause(eCause) {}
CGraphicsException::~CGraphicsException() = default;
