// Opening the product's web page in the browser, after checking that the computer is online.
#pragma once

#include <functional>

class QUrl;
class QWidget;

namespace curvemill {

inline constexpr const char* kProductWebAddress = "https://www.curvemill.org/";
inline constexpr const char* kMsgNoInternet = "INTERNET CONNECTION IS NOT ESTABLISHED";
// The system's own wording, "YOU" included.
inline constexpr const char* kMsgNoBrowser = "UNABLE TO FIND INTERNET EXPLORER PROGRAM ON YOU PC";

// Online as the system's network information reports it, else any interface other than the
// loopback one is up and running.
bool internetConnected();

// How the page is reached; tests replace both.
struct WebPageRoute {
    std::function<bool()> connected = internetConnected;
    // Starts the browser on the address; false when no browser could be started.
    std::function<bool(const QUrl&)> open;
};

// Shows the connection message (caption "ERROR") when offline, else opens the page, and says so
// when no browser could be started.
void openProductWebPage(QWidget* parent, const WebPageRoute& route = {});

}  // namespace curvemill
