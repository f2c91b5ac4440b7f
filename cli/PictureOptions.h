#pragma once

#include <optional>
#include <string>

namespace CLI {
class App;
}

/// Part of the commands' help.
#define INDEXED_TEXT_HELP                                                                                    \
    "Indexed text: a tilde and a letter say how the text before them is drawn: ~N normal, ~H raised, "       \
    "~L lowered, ~G Greek,\n~b bold, ~i italic, as in \"c~G(T)~N\".\n"

namespace tessara {

/// What the user asks of any picture, as written; checked when it is used.
struct PICTUREOPTIONS {
    std::string strOutput;
    std::string strSize = "1600x1150";
    double dDotsPerInch = 240;

    std::optional<std::string> name;
    std::optional<std::string> slide;

    std::optional<std::string> xScale;
    std::optional<std::string> yScale;
    bool bNoLegend = false;
    bool bNoCaption = false;
    bool bMonochrome = false;
};

// Each gives a subcommand some of these options, in the order in which its help is to list them.

void DeclareOutput(CLI::App& command, PICTUREOPTIONS& options,
                   const char* pszHelp = "picture to write: .png, .svg, .pdf or .wmf");
void DeclareName(CLI::App& command, PICTUREOPTIONS& options, const char* pszHelp);
void DeclareSlide(CLI::App& command, PICTUREOPTIONS& options, const char* pszHelp);
void DeclareSize(CLI::App& command, PICTUREOPTIONS& options);
void DeclareScales(CLI::App& command, PICTUREOPTIONS& options);
void DeclareSwitches(CLI::App& command, PICTUREOPTIONS& options);

} // namespace tessara
