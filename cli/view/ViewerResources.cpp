#include "cli/view/ViewerResources.h"
#include "cli/view/ViewerIcons.h"
#include "tessara/platform/base/StringResources.h"
#include "tessara/platform/ui/resources/Resources.h"

// The tables.

namespace tessara {

namespace {

constexpr CMenuEntry FILE_MENU[] = {{"&Open...\tCtrl+O", ID_FILE_OPEN},
                                    {"&Reload\tF5", ID_FILE_RELOAD},
                                    {"&Export...\tCtrl+E", ID_FILE_EXPORT},
                                    MENU_SEPARATOR,
                                    {"&Print...\tCtrl+P", ID_FILE_PRINT},
                                    {"Print Pre&view\tCtrl+Shift+P", ID_FILE_PRINT_PREVIEW},
                                    MENU_SEPARATOR,
                                    {"Recent Files", ID_FILE_MRU_FILE1},
                                    MENU_SEPARATOR,
                                    {"&Close Window\tCtrl+W", ID_FILE_CLOSE},
                                    {"E&xit\tCtrl+Q", ID_APP_EXIT}};
constexpr CMenuEntry EDIT_MENU[] = {{"&Copy\tCtrl+C", ID_EDIT_COPY},
                                    {"Copy &Values\tCtrl+Shift+C", ID_EDIT_COPY_VALUES}};
constexpr CMenuEntry MOVE_MENU[] = {{"&Left\tShift+Left", ID_PAN_LEFT},
                                    {"&Right\tShift+Right", ID_PAN_RIGHT},
                                    {"&Up\tShift+Up", ID_PAN_UP},
                                    {"&Down\tShift+Down", ID_PAN_DOWN}};
constexpr CMenuEntry VIEW_MENU[] = {{"Zoom into &Area\tZ", ID_ZOOM_AREA},
                                    {"Zoom &In\tCtrl+Plus", ID_ZOOM_IN},
                                    {"Zoom &Out\tCtrl+Minus", ID_ZOOM_OUT},
                                    {"&Back\tAlt+Left", ID_ZOOM_BACK},
                                    {"&Forward\tAlt+Right", ID_ZOOM_FORWARD},
                                    {"&Whole Plot\tCtrl+0", ID_ZOOM_WHOLE},
                                    {"Mo&ve", MOVE_MENU},
                                    MENU_SEPARATOR,
                                    {"&Multiphase Points\tM", ID_SWITCH_MULTIPHASE},
                                    {"&Legend\tL", ID_SWITCH_LEGEND},
                                    {"&Caption\tC", ID_SWITCH_CAPTION},
                                    {"Mo&nochrome\tB", ID_SWITCH_MONOCHROME},
                                    {"Custom Scal&e...\tCtrl+K", ID_VIEW_SCALES},
                                    MENU_SEPARATOR,
                                    {"&Toolbar\tT", ID_VIEW_TOOLBAR},
                                    {"&Status Bar\tS", ID_VIEW_STATUS_BAR},
                                    {"F&ull Screen\tF11", ID_VIEW_FULL_SCREEN}};
constexpr CMenuEntry READ_MENU[] = {{"&Get Value\tF2", ID_READ_VALUE},
                                    {"&Extended Get Value\tF3", ID_READ_EXTENDED},
                                    {"&Cross Section\tF4", ID_READ_SECTION},
                                    MENU_SEPARATOR,
                                    {"&Next Window\tF6", ID_VIEW_NEXT_WINDOW}};
constexpr CMenuEntry HELP_MENU[] = {{"&Keys\tF1", ID_HELP_KEYS}, {"&About\tShift+F1", ID_APP_ABOUT}};
constexpr CMenuEntry MAIN_MENU[] = {{"&File", FILE_MENU},
                                    {"&Edit", EDIT_MENU},
                                    {"&View", VIEW_MENU},
                                    {"&Read", READ_MENU},
                                    {"&Help", HELP_MENU}};

constexpr CMenuEntry CONTEXT_POPUP[] = {{"Zoom into &Area\tZ", ID_ZOOM_AREA},
                                        {"&Back\tAlt+Left", ID_ZOOM_BACK},
                                        {"&Forward\tAlt+Right", ID_ZOOM_FORWARD},
                                        {"&Whole Plot\tCtrl+0", ID_ZOOM_WHOLE},
                                        MENU_SEPARATOR,
                                        {"&Get Value\tF2", ID_READ_VALUE},
                                        {"E&xtended Get Value\tF3", ID_READ_EXTENDED},
                                        {"Cross &Section\tF4", ID_READ_SECTION},
                                        MENU_SEPARATOR,
                                        {"&Legend\tL", ID_SWITCH_LEGEND},
                                        {"Custom Scal&e...\tCtrl+K", ID_VIEW_SCALES},
                                        MENU_SEPARATOR,
                                        {"&Copy\tCtrl+C", ID_EDIT_COPY},
                                        {"Ex&port...\tCtrl+E", ID_FILE_EXPORT}};
constexpr CMenuEntry CONTEXT_MENU[] = {{"", CONTEXT_POPUP}};
constexpr CMenuResource MENUS[] = {{IDR_VIEWER, MAIN_MENU}, {IDR_VIEWER_CONTEXT, CONTEXT_MENU}};

/// The first key of a command is the one that the menu names. Plus is typed with Shift on many keyboards.
constexpr CAccelerator KEYS[] = {{FCONTROL, 'O', ID_FILE_OPEN},
                                 {FNONE, VK_F5, ID_FILE_RELOAD},
                                 {FCONTROL, 'E', ID_FILE_EXPORT},
                                 {FCONTROL, 'P', ID_FILE_PRINT},
                                 {FCONTROL | FSHIFT, 'P', ID_FILE_PRINT_PREVIEW},
                                 {FCONTROL, 'W', ID_FILE_CLOSE},
                                 {FCONTROL, 'Q', ID_APP_EXIT},
                                 {FCONTROL, 'C', ID_EDIT_COPY},
                                 {FCONTROL | FSHIFT, 'C', ID_EDIT_COPY_VALUES},
                                 {FNONE, 'Z', ID_ZOOM_AREA},
                                 {FCONTROL, VK_OEM_PLUS, ID_ZOOM_IN},
                                 {FCONTROL | FSHIFT, VK_OEM_PLUS, ID_ZOOM_IN},
                                 {FCONTROL, VK_OEM_MINUS, ID_ZOOM_OUT},
                                 {FALT, VK_LEFT, ID_ZOOM_BACK},
                                 {FALT, VK_RIGHT, ID_ZOOM_FORWARD},
                                 {FCONTROL, '0', ID_ZOOM_WHOLE},
                                 {FSHIFT, VK_LEFT, ID_PAN_LEFT},
                                 {FSHIFT, VK_RIGHT, ID_PAN_RIGHT},
                                 {FSHIFT, VK_UP, ID_PAN_UP},
                                 {FSHIFT, VK_DOWN, ID_PAN_DOWN},
                                 {FNONE, VK_LEFT, ID_ARROW_LEFT},
                                 {FNONE, VK_RIGHT, ID_ARROW_RIGHT},
                                 {FNONE, VK_UP, ID_ARROW_UP},
                                 {FNONE, VK_DOWN, ID_ARROW_DOWN},
                                 {FNONE, 'M', ID_SWITCH_MULTIPHASE},
                                 {FNONE, 'L', ID_SWITCH_LEGEND},
                                 {FNONE, 'C', ID_SWITCH_CAPTION},
                                 {FNONE, 'B', ID_SWITCH_MONOCHROME},
                                 {FCONTROL, 'K', ID_VIEW_SCALES},
                                 {FNONE, 'T', ID_VIEW_TOOLBAR},
                                 {FNONE, 'S', ID_VIEW_STATUS_BAR},
                                 {FNONE, VK_F11, ID_VIEW_FULL_SCREEN},
                                 {FNONE, VK_F2, ID_READ_VALUE},
                                 {FNONE, 'V', ID_READ_VALUE},
                                 {FNONE, VK_F3, ID_READ_EXTENDED},
                                 {FNONE, VK_F4, ID_READ_SECTION},
                                 {FNONE, VK_F6, ID_VIEW_NEXT_WINDOW},
                                 {FSHIFT, VK_F10, ID_VIEW_CONTEXT_MENU},
                                 {FNONE, VK_ESCAPE, ID_LEAVE},
                                 {FNONE, VK_F1, ID_HELP_KEYS},
                                 {FSHIFT, VK_F1, ID_APP_ABOUT}};
constexpr CAcceleratorResource ACCELERATORS[] = {{IDR_VIEWER, KEYS}};

constexpr CToolButton BUTTONS[] = {{ID_FILE_OPEN, "Open", "", ICON_OPEN},
                                   {ID_FILE_RELOAD, "Reload", "", ICON_RELOAD},
                                   {ID_FILE_EXPORT, "Export", "", ICON_EXPORT},
                                   {ID_FILE_PRINT, "Print", "", ICON_PRINT},
                                   {ID_EDIT_COPY, "Copy", "", ICON_COPY},
                                   {0},
                                   {ID_ZOOM_AREA, "Zoom into Area", "", ICON_ZOOM_AREA},
                                   {ID_ZOOM_IN, "Zoom In", "", ICON_ZOOM_IN},
                                   {ID_ZOOM_OUT, "Zoom Out", "", ICON_ZOOM_OUT},
                                   {ID_ZOOM_BACK, "Back", "", ICON_BACK},
                                   {ID_ZOOM_FORWARD, "Forward", "", ICON_FORWARD},
                                   {ID_ZOOM_WHOLE, "Whole Plot", "", ICON_WHOLE},
                                   {0},
                                   {ID_SWITCH_LEGEND, "Legend", "", ICON_LEGEND},
                                   {ID_SWITCH_MONOCHROME, "Monochrome", "", ICON_MONOCHROME},
                                   {ID_SWITCH_MULTIPHASE, "Multiphase Points", "", ICON_MULTIPHASE},
                                   {ID_VIEW_SCALES, "Custom Scale", "", ICON_SCALES},
                                   {0},
                                   {ID_READ_VALUE, "Get Value", "", ICON_VALUE},
                                   {ID_READ_EXTENDED, "Extended Get Value", "", ICON_EXTENDED},
                                   {ID_READ_SECTION, "Cross Section", "", ICON_SECTION}};
constexpr CToolBarResource TOOLBARS[] = {{IDR_VIEWER, BUTTONS}};

/// What the status bar says of a command, and the name that buttons and the list of keys give it.
constexpr CStringResource STRINGS[] = {
    {IDR_VIEWER, "Tessara"},
    {IDS_VIEWER_ZOOMED, "Zoomed"},
    {ID_FILE_OPEN, "Opens a data file or a diagram file\nOpen (Ctrl+O)"},
    {ID_FILE_RELOAD, "Reads the file again\nReload (F5)"},
    {ID_FILE_EXPORT, "Writes a picture: PNG, SVG, PDF or Windows metafile\nExport (Ctrl+E)"},
    {ID_FILE_PRINT, "Prints the plot\nPrint (Ctrl+P)"},
    {ID_FILE_PRINT_PREVIEW, "Shows the plot as it will be printed\nPrint Preview"},
    {ID_FILE_CLOSE, "Closes this window\nClose Window"},
    {ID_APP_EXIT, "Closes all windows\nExit"},
    {ID_EDIT_COPY, "Copies the plot as a picture, with its values as text\nCopy (Ctrl+C)"},
    {ID_EDIT_COPY_VALUES, "Copies the values as lines of tab-separated text\nCopy Values"},
    {ID_ZOOM_AREA, "Drag a rectangle to enlarge it\nZoom into Area (Z)"},
    {ID_ZOOM_IN, "Enlarges the middle of the plot\nZoom In (Ctrl+Plus)"},
    {ID_ZOOM_OUT, "Shows more of the plot\nZoom Out (Ctrl+Minus)"},
    {ID_ZOOM_BACK, "Shows what was shown before\nBack (Alt+Left)"},
    {ID_ZOOM_FORWARD, "Undoes the last Back\nForward (Alt+Right)"},
    {ID_ZOOM_WHOLE, "Shows the whole plot\nWhole Plot (Ctrl+0)"},
    {ID_PAN_LEFT, "Moves to the left\nMove Left"},
    {ID_PAN_RIGHT, "Moves to the right\nMove Right"},
    {ID_PAN_UP, "Moves up\nMove Up"},
    {ID_PAN_DOWN, "Moves down\nMove Down"},
    {ID_ARROW_LEFT, "\nPrevious Point (with a read-out), Move Left"},
    {ID_ARROW_RIGHT, "\nNext Point (with a read-out), Move Right"},
    {ID_ARROW_UP, "\nPrevious Curve (with a read-out), Move Up"},
    {ID_ARROW_DOWN, "\nNext Curve (with a read-out), Move Down"},
    {ID_SWITCH_MULTIPHASE, "Marks where the cloud-point curve crosses itself\nMultiphase Points (M)"},
    {ID_SWITCH_LEGEND, "Shows or hides the legend\nLegend (L)"},
    {ID_SWITCH_CAPTION, "Shows or hides the caption\nCaption (C)"},
    {ID_SWITCH_MONOCHROME, "Dash patterns instead of colours\nMonochrome (B)"},
    {ID_VIEW_SCALES, "Sets where the axes begin and end, and their steps\nCustom Scale (Ctrl+K)"},
    {ID_VIEW_TOOLBAR, "Shows or hides the toolbar\nToolbar"},
    {ID_VIEW_STATUS_BAR, "Shows or hides the status bar\nStatus Bar"},
    {ID_VIEW_FULL_SCREEN, "The plot alone on the whole screen; Escape comes back\nFull Screen"},
    {ID_VIEW_CONTEXT_MENU, "\nMenu of the Plot"},
    {ID_VIEW_NEXT_WINDOW, "Goes from the plot to a read-out and back\nNext Window"},
    {ID_READ_VALUE, "Reads values of the curve that is clicked\nGet Value (F2)"},
    {ID_READ_EXTENDED, "Reads all that is known of the point that is clicked\nExtended Get Value (F3)"},
    {ID_READ_SECTION, "Cuts the diagram at a point of the cloud-point curve\nCross Section (F4)"},
    {ID_HELP_KEYS, "Lists all keys\nKeys"},
    {ID_APP_ABOUT, "Tells which program this is\nAbout"},
    {ID_LEAVE, "\nClose Message, End Zooming into an Area, Leave Full Screen"}};

CFileResource IconResource() {
    return {EFileResource::icon,
            IDR_VIEWER,
            {reinterpret_cast<const unsigned char*>(ICON_VIEWER.data()), ICON_VIEWER.size()}};
}

} // namespace

void AddViewerResources() {
    [[maybe_unused]] static const bool s_bAdded = [] {
        static const CFileResource s_files[] = {IconResource()};
        AddMenuResources(MENUS);
        AddAcceleratorResources(ACCELERATORS);
        AddToolBarResources(TOOLBARS);
        AddStringResources(STRINGS);
        AddResources({{}, s_files});
        return true;
    }();
}

} // namespace tessara
