#include "ppd/PDEChoiceEMFSpecialPages.h"

#include <algorithm>
#include <string_view>

namespace specialpages {

std::shared_ptr<PDEChoiceEMFSpecialPages>
PDEChoiceEMFSpecialPages::choiceWithChoice(const ppd_choice_t* choice) {
    return std::make_shared<PDEChoiceEMFSpecialPages>(choice);
}

const std::optional<std::string>& PDEChoiceEMFSpecialPages::made(Title& title, const char* bytes) const {
    if (!title.made) {
        title.made = true;
        const std::string_view text = bytes == nullptr ? std::string_view{} : std::string_view(bytes);
        const bool ascii = std::all_of(text.begin(), text.end(),
                                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
        if (bytes != nullptr && ascii) {
            title.text = std::string(text);
        }
    }
    return title.text;
}

const std::optional<std::string>& PDEChoiceEMFSpecialPages::userTitle() {
    return made(userTitle_, choice_ == nullptr ? nullptr : choice_->text);
}

const std::optional<std::string>& PDEChoiceEMFSpecialPages::ppdTitle() {
    return made(ppdTitle_, choice_ == nullptr ? nullptr : choice_->choice);
}

std::optional<std::vector<std::shared_ptr<PDEChoiceEMFSpecialPages>>>
ArrayFromPPDOption(const ppd_option_t* option) {
    if (option == nullptr) {
        return std::nullopt;
    }
    std::vector<std::shared_ptr<PDEChoiceEMFSpecialPages>> choices;
    const int count = option->choices == nullptr ? 0 : std::max(option->num_choices, 0);
    choices.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        choices.push_back(PDEChoiceEMFSpecialPages::choiceWithChoice(&option->choices[i]));
    }
    return choices;
}

} // namespace specialpages
