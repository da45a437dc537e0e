// The failure report's actions on the desktop: hide the windows, show the box, restart, exit.
#pragma once

#include <functional>
#include <vector>

#include "failure/FailureReporter.h"

namespace curvemill {

class QtFailurePlatform final : public FailurePlatform {
  public:
    // Registered in hiding order: the history windows, the preview window, the main window.
    void addWindowHider(std::function<void()> hide) { hiders_.push_back(std::move(hide)); }
    // Gives the main window the focus; none is set before the main window exists.
    void setMainWindowFocuser(std::function<void()> focus) { focuser_ = std::move(focus); }

    void hideWindows() override;
    void showErrorMessage(const std::string& text) override;
    std::string executablePath() override;
    void startDetached(const std::string& program) override;
    void focusMainWindow() override;
    [[noreturn]] void exitProcess(int code) override;

  private:
    std::vector<std::function<void()>> hiders_;
    std::function<void()> focuser_;
};

}  // namespace curvemill
