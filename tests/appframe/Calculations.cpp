#include "tests/appframe/Calculations.h"

namespace tessara {

std::vector<std::string>* CTestCalculation::s_pTold = nullptr;

BEGIN_MESSAGE_MAP(CCalculatingWnd, CWnd)
ON_MESSAGE(WM_CALCULATION_DONE, OnCalculation)
ON_MESSAGE(WM_PREPARATION_DONE, OnPreparation)
END_MESSAGE_MAP()

} // namespace tessara
