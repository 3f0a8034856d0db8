// A PPD choice with its titles as text, for menus that are built from the PPD. The choice is borrowed from
// the PPD.
#pragma once

#include <cups/ppd.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace specialpages {

class PDEChoiceEMFSpecialPages {
  public:
    static std::shared_ptr<PDEChoiceEMFSpecialPages> choiceWithChoice(const ppd_choice_t* choice);
    explicit PDEChoiceEMFSpecialPages(const ppd_choice_t* choice) : choice_(choice) {}

    const ppd_choice_t* choice() const { return choice_; }
    /// The choice's text, made at the first question. Null for a null choice, and for a text with other
    /// characters than ASCII: only ASCII is decoded here, on purpose.
    const std::optional<std::string>& userTitle();
    /// The same for the choice's keyword.
    const std::optional<std::string>& ppdTitle();
    /// Always null.
    static std::optional<std::string> description() { return std::nullopt; }

  private:
    struct Title {
        bool made = false;
        std::optional<std::string> text;
    };
    const std::optional<std::string>& made(Title& title, const char* bytes) const;
    const ppd_choice_t* choice_;
    Title userTitle_;
    Title ppdTitle_;
};

/// All choices of the option, in order. Empty optional for a null option.
std::optional<std::vector<std::shared_ptr<PDEChoiceEMFSpecialPages>>>
ArrayFromPPDOption(const ppd_option_t* option);

} // namespace specialpages
