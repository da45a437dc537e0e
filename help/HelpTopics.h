// The help archive's topics: how a topic is named inside it, and which topic each window, dialog
// and control opens. The one table every window's help button and F1 key goes through.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace curvemill {

inline constexpr int kHelpTopicCount = 34;
inline constexpr int kHelpHomeTopic = 16;
inline constexpr std::string_view kHelpArchiveName = "CurveMillHelp.qch";
// The archive's namespace and folder, as its project file declares them.
inline constexpr std::string_view kHelpNamespace = "org.curvemill.help";
inline constexpr std::string_view kHelpFolder = "doc";

// The question when help cannot be shown; the names in it are the system's own wording.
inline constexpr const char* kMsgHelpMissing =
    "TO VIEW HELP, YOU MUST HAVE <CurveMillHelp.chm>\n IN THE SAME DIRECTORY AS "
    "<CurveMill.exe>\nCLICK 'YES' IF YOU WANT TO DOWNLOAD THIS FILE FROM OUR WEBSITE";

// "file%d.htm", or "file%d.htm#%s" when an anchor is given; empty for a number outside 1..34.
std::string helpTopicFile(int topic, std::string_view anchor = {});

// The topic's address inside the archive: qthelp://<namespace>/<folder>/file%d.htm[#anchor].
std::string helpTopicAddress(int topic, std::string_view anchor = {});

struct HelpLink {
    int topic = kHelpHomeTopic;
    std::string_view anchor;
};

// One row of the help table. `window` is the display name of the window's procedure (the name
// its failure reports carry); `control` the control's identifier (its objectName), empty for the
// window as a whole. Error boxes are named "error" followed by the identifier of the box at fault.
struct HelpPlace {
    std::string_view window;
    std::string_view control;
    HelpLink link;
};

std::span<const HelpPlace> helpPlaces();

// The row of exactly this window and control (empty `control`: the window's own row).
std::optional<HelpLink> exactHelpLink(std::string_view window, std::string_view control);

// The row for a control of a window, else the window's own row; nothing when the window has none.
std::optional<HelpLink> helpLinkFor(std::string_view window, std::string_view control = {});

}  // namespace curvemill
