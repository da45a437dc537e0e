// Command identifiers and texts of the history list menus and the context menu.
#pragma once

namespace curvemill::history_commands {

inline constexpr int kLoadOriginalList = 40138;
inline constexpr int kSelect = 40026;
inline constexpr int kMoveToTop = 40039;
inline constexpr int kHighlightSelectedItem = 40119;
inline constexpr int kFind = 40022;
inline constexpr int kFindNext = 40023;
inline constexpr int kDeleteItem = 40021;
// The text list's menu says "Delete List", the report list's "Delete &List"; both do the same.
inline constexpr int kDeleteList = 40025;
inline constexpr int kDeleteListReport = 40019;
// "Locate Current Input": finds the entry of the graph dialog's boxes again after the user has
// scrolled away or picked another one. An identifier of ours, outside the main menu's range.
inline constexpr int kLocateInput = 40200;

// Menu resources: the text list's, the report list's, and the list's context menu.
inline constexpr int kTextListMenu = 111;
inline constexpr int kReportListMenu = 118;
inline constexpr int kContextMenu = 247;

}  // namespace curvemill::history_commands
