// What the window says around the pane: the print dialog and the help viewer, in the user's language: the
// table "PrintDialog" of the pane's bundle.
#pragma once

#include <QString>
#include <filesystem>
#include <memory>
#include <string>

namespace specialpages::platform {
class Bundle;
}

namespace specialpages::qt {

/// A text by its key, with what it is in English for a bundle that has no such table.
struct WindowText {
    const char* key;
    const char* english;
};

inline constexpr WindowText kTabTitle{"Tab Title", "Special Pages"};
inline constexpr WindowText kRememberSettings{"Remember Settings",
                                              "Remember these settings for this printer"};
inline constexpr WindowText kRememberedUnreadable{
    "Remembered Unreadable",
    "The settings remembered for this printer cannot be read; the file stays as it is:"};
inline constexpr WindowText kNotRemembered{"Not Remembered",
                                           "The job is printed, but the settings could not be remembered:"};
inline constexpr WindowText kWindowOpen{"Window Open", "A window of Special Pages is open. Close it first."};
inline constexpr WindowText kPrintStopped{"Print Stopped", "Special Pages stopped the printing."};
inline constexpr WindowText kHelpBack{"Back", "Back"};
inline constexpr WindowText kHelpForward{"Forward", "Forward"};
inline constexpr WindowText kHelpClose{"Close", "Close"};
inline constexpr WindowText kHelpPage{"Help", "Help"};

class WindowTexts {
  public:
    /// English.
    WindowTexts() = default;
    /// Those of the bundle in this directory (empty: where a host looks for it) in the language; English
    /// where there is no bundle.
    WindowTexts(const std::filesystem::path& bundle, const std::string& language);
    /// Those of this bundle in the language that it prefers; English for a null one.
    explicit WindowTexts(std::shared_ptr<platform::Bundle> bundle);

    QString operator()(const WindowText& text) const;
    /// The text and what follows it.
    QString operator()(const WindowText& text, const std::string& reason) const;

  private:
    std::shared_ptr<platform::Bundle> bundle_;
};

} // namespace specialpages::qt
