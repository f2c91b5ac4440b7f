#pragma once

#include <string_view>

// The toolbar's pictures, 24 x 24 units, in the colour of the desktop's text. Drawn for this program.

namespace tessara {

#define TESSARA_ICON(body)                                                                                   \
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24" fill="none" )"     \
    R"(stroke="currentColor" stroke-width="1.8" stroke-linecap="round" stroke-linejoin="round">)" body       \
    "</svg>"

constexpr std::string_view ICON_OPEN = TESSARA_ICON(R"(<path d="M3 19V5h6l2 3h8v3M3 19l3-8h15l-3 8z"/>)");
constexpr std::string_view ICON_RELOAD =
    TESSARA_ICON(R"(<path d="M20 12a8 8 0 1 1-2.4-5.7"/><path d="M18 2v5h-5"/>)");
constexpr std::string_view ICON_EXPORT =
    TESSARA_ICON(R"(<path d="M12 3v11M7.5 9.5L12 14l4.5-4.5M4 15v5h16v-5"/>)");
constexpr std::string_view ICON_PRINT =
    TESSARA_ICON(R"(<path d="M7 9V3h10v6M7 17H3V9h18v8h-4"/><path d="M7 14h10v7H7z"/>)");
constexpr std::string_view ICON_COPY = TESSARA_ICON(R"(<path d="M8 8h12v13H8z"/><path d="M5 16H4V3h12v2"/>)");

constexpr std::string_view ICON_ZOOM_AREA = TESSARA_ICON(
    R"(<path d="M3 8V3h5M12 3h5v5M3 12v5h5"/><circle cx="14.5" cy="14.5" r="4.5"/><path d="M18 18l3.5 3.5"/>)");
constexpr std::string_view ICON_ZOOM_IN =
    TESSARA_ICON(R"(<circle cx="10" cy="10" r="7"/><path d="M15.2 15.2L21 21M7 10h6M10 7v6"/>)");
constexpr std::string_view ICON_ZOOM_OUT =
    TESSARA_ICON(R"(<circle cx="10" cy="10" r="7"/><path d="M15.2 15.2L21 21M7 10h6"/>)");
constexpr std::string_view ICON_BACK = TESSARA_ICON(R"(<path d="M20 12H4M11 5l-7 7 7 7"/>)");
constexpr std::string_view ICON_FORWARD = TESSARA_ICON(R"(<path d="M4 12h16M13 5l7 7-7 7"/>)");
constexpr std::string_view ICON_WHOLE =
    TESSARA_ICON(R"(<path d="M3 9V3h6M15 3h6v6M21 15v6h-6M9 21H3v-6"/><path d="M8 8h8v8H8z"/>)");

constexpr std::string_view ICON_LEGEND =
    TESSARA_ICON(R"(<path d="M3 6h5M3 12h5M3 18h5"/><path d="M12 6h9M12 12h9M12 18h6" stroke-width="1.2"/>)");
constexpr std::string_view ICON_MONOCHROME =
    TESSARA_ICON(R"(<circle cx="12" cy="12" r="9"/><path d="M12 3a9 9 0 0 1 0 18z" fill="currentColor"/>)");
constexpr std::string_view ICON_MULTIPHASE = TESSARA_ICON(
    R"(<path d="M3 19C9 5 13 5 15 11s-7 8-6 3 7-8 12-9"/><circle cx="11" cy="9.5" r="2.6" fill="currentColor"/>)");
constexpr std::string_view ICON_SCALES =
    TESSARA_ICON(R"(<path d="M5 3v16h16M5 5H2.5M5 10H2.5M5 15H2.5M10 19v2.5M15 19v2.5M20 19v2.5"/>)");

constexpr std::string_view ICON_VALUE = TESSARA_ICON(
    R"(<path d="M3 18C8 17 9 6 21 5"/><path d="M11.5 3v4M11.5 16v4M4 11.5h4M15 11.5h4" stroke-width="1.4"/>)"
    R"(<circle cx="11.5" cy="11.5" r="2" fill="currentColor"/>)");
constexpr std::string_view ICON_EXTENDED =
    TESSARA_ICON(R"(<path d="M2 20C5 19 6 9 9 4"/><circle cx="6" cy="12" r="2" fill="currentColor"/>)"
                 R"(<path d="M13 6h8M13 11h8M13 16h8M13 21h5" stroke-width="1.4"/>)");
constexpr std::string_view ICON_SECTION =
    TESSARA_ICON(R"(<path d="M3 19C6 4 18 4 21 19"/><path d="M2 12h3M8 12h3M14 12h3M20 12h2"/>)");

constexpr std::string_view ICON_VIEWER =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="48" height="48" viewBox="0 0 48 48">)"
    R"(<rect x="3" y="3" width="42" height="42" rx="6" fill="#ffffff" stroke="#5b6472" stroke-width="2"/>)"
    R"(<path d="M11 9v28h28" fill="none" stroke="#333333" stroke-width="2.5"/>)"
    R"(<path d="M14 34C18 8 30 8 36 34" fill="none" stroke="#1f4fd8" stroke-width="3"/>)"
    R"(<path d="M18 34C21 19 28 19 31 34" fill="none" stroke="#d02020" stroke-width="3"/>)"
    R"(<circle cx="25" cy="15" r="3.2" fill="#107010"/></svg>)";

#undef TESSARA_ICON

} // namespace tessara
