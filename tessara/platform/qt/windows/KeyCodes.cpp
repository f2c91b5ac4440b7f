#include <QHash>

#include "tessara/platform/qt/windows/Peer.h"

namespace tessara {

UINT ToVirtualKey(int nQtKey, Qt::KeyboardModifiers eModifiers) {
    static const QHash<int, UINT> s_keys = {
        {Qt::Key_Backspace, VK_BACK},  {Qt::Key_Tab, VK_TAB},       {Qt::Key_Backtab, VK_TAB},
        {Qt::Key_Return, VK_RETURN},   {Qt::Key_Enter, VK_RETURN},  {Qt::Key_Shift, VK_SHIFT},
        {Qt::Key_Control, VK_CONTROL}, {Qt::Key_Alt, VK_MENU},      {Qt::Key_Escape, VK_ESCAPE},
        {Qt::Key_Space, VK_SPACE},     {Qt::Key_PageUp, VK_PRIOR},  {Qt::Key_PageDown, VK_NEXT},
        {Qt::Key_End, VK_END},         {Qt::Key_Home, VK_HOME},     {Qt::Key_Left, VK_LEFT},
        {Qt::Key_Up, VK_UP},           {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Down, VK_DOWN},
        {Qt::Key_Insert, VK_INSERT},   {Qt::Key_Delete, VK_DELETE}, {Qt::Key_Plus, VK_OEM_PLUS},
        {Qt::Key_Minus, VK_OEM_MINUS}};
    if (eModifiers & Qt::KeypadModifier && (nQtKey == Qt::Key_Plus || nQtKey == Qt::Key_Minus)) {
        return nQtKey == Qt::Key_Plus ? VK_ADD : VK_SUBTRACT;
    }
    if (nQtKey == Qt::Key_Equal && !(eModifiers & Qt::ShiftModifier)) {
        return VK_OEM_PLUS; // where '=' needs no Shift it shares its key with '+'
    }
    if (nQtKey >= Qt::Key_F1 && nQtKey <= Qt::Key_F12) {
        return VK_F1 + static_cast<UINT>(nQtKey - Qt::Key_F1);
    }
    if ((nQtKey >= Qt::Key_A && nQtKey <= Qt::Key_Z) || (nQtKey >= Qt::Key_0 && nQtKey <= Qt::Key_9)) {
        return static_cast<UINT>(nQtKey); // both are the capital's ASCII code
    }
    return s_keys.value(nQtKey, 0);
}

} // namespace tessara
