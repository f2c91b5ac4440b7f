#pragma once

#include "tessara/platform/base/Types.h"

/// Numbers of standard commands, of windows in a frame and of texts. Applications' own commands are below
/// 0xE000.
enum StandardCommand : UINT {
    ID_SEPARATOR = 0,

    ID_FILE_NEW = 0xE100,
    ID_FILE_OPEN = 0xE101,
    ID_FILE_CLOSE = 0xE102,
    ID_FILE_SAVE = 0xE103,
    ID_FILE_SAVE_AS = 0xE104,
    ID_FILE_PRINT = 0xE107,
    ID_FILE_PRINT_PREVIEW = 0xE109,
    ID_FILE_MRU_FILE1 = 0xE110, ///< recent files, the newest first
    ID_FILE_MRU_FILE2 = 0xE111,
    ID_FILE_MRU_FILE3 = 0xE112,
    ID_FILE_MRU_FILE4 = 0xE113,
    ID_FILE_MRU_LAST = 0xE11F,

    ID_APP_ABOUT = 0xE140,
    ID_APP_EXIT = 0xE141,

    ID_VIEW_TOOLBAR = 0xE800,
    ID_VIEW_STATUS_BAR = 0xE801
};

/// Numbers of a frame's children.
enum FrameChild : UINT {
    AFX_IDW_TOOLBAR = 0xE800,
    AFX_IDW_STATUS_BAR = 0xE801,
    AFX_IDW_PANE_FIRST = 0xE900 ///< the view
};

/// Numbers of standard texts. A string resource of the same number takes the place of the library's text.
enum StandardText : UINT {
    AFX_IDS_APP_TITLE = 0xE000, ///< the application's name; no text of the library's own
    AFX_IDS_IDLEMESSAGE = 0xE001,
    AFX_IDS_UNTITLED = 0xF003,
    AFX_IDS_OPENFILE = 0xF000,
    AFX_IDS_SAVEFILE = 0xF001,
    AFX_IDS_ALLFILTER = 0xF002,
    AFX_IDP_FAILED_TO_OPEN_DOC = 0xF101,
    AFX_IDP_FAILED_TO_SAVE_DOC = 0xF102,
    AFX_IDP_ASK_TO_SAVE = 0xF103,
    AFX_IDP_FAILED_TO_CREATE_DOC = 0xF104,
    AFX_IDP_ASK_TO_REPLACE = 0xF105 ///< with the file's name in place of %s
};
