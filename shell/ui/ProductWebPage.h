// Opening the product's web page in the browser, after checking that the computer is online.
#pragma once

class QWidget;

namespace curvemill {

inline constexpr const char* kProductWebAddress = "https://www.curvemill.org/";
inline constexpr const char* kMsgNoInternet = "INTERNET CONNECTION IS NOT ESTABLISHED";

// Online as the system's network information reports it, else any interface other than the
// loopback one is up and running.
bool internetConnected();

// Shows the connection message (caption "ERROR") when offline, else opens the page.
void openProductWebPage(QWidget* parent);

}  // namespace curvemill
