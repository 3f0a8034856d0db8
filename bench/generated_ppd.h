// Writes PPDs of any number of options and constraints. The same sizes give the same bytes everywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace specialpages::bench {

struct PpdSizes {
    std::size_t constraints = 0;
    std::size_t options = 0; ///< at least kAskedOptions + 2
    std::size_t choices = 20;
    /// Of every thousand constraints: how many name one choice only (half of them the first, half the
    /// second), and how many name none. The others name both.
    std::size_t per_mille_with_one_choice = 20;
    std::size_t per_mille_without_choice = 2;
};

/// The first options of the PPD play the part of a dialog's paper menus: each of their choices is forbidden
/// by kConstraintsOfAskedChoice choices of other options, however many constraints the PPD has. All other
/// constraints are spread over the remaining options.
inline constexpr std::size_t kAskedOptions = 3;
inline constexpr std::size_t kConstraintsOfAskedChoice = 5;

inline std::string numbered(std::string_view word, std::size_t number) {
    const std::string digits = std::to_string(number);
    return std::string(word) + std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits;
}
inline std::string option_name(std::size_t option) {
    return numbered("NVFeature", option);
}
inline std::string choice_name(std::size_t choice) {
    return choice == 0 ? "None" : numbered("Setting", choice);
}

class PpdWriter {
  public:
    explicit PpdWriter(const PpdSizes& sizes) : sizes_(sizes) {}

    /// `attributes` are whole lines, put before the options.
    std::string text(std::string_view attributes) {
        text_ =
            "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n*LanguageVersion: English\n"
            "*LanguageEncoding: ISOLatin1\n*PCFileName: \"BENCH.PPD\"\n*Manufacturer: \"NV\"\n"
            "*Product: \"(Bench)\"\n*ModelName: \"Bench\"\n*ShortNickName: \"Bench\"\n"
            "*NickName: \"Bench\"\n*PSVersion: \"(3010.000) 0\"\n";
        text_ += attributes;
        for (std::size_t option = 0; option < sizes_.options; ++option) {
            add_option(option);
        }
        std::size_t written = 0;
        for (std::size_t i = 0; i < kConstraintsOfAskedChoice; ++i) {
            for (std::size_t asked = 0; asked < kAskedOptions * sizes_.choices; ++asked, ++written) {
                add_constraint(other_option(), 1 + below(sizes_.choices - 1), asked / sizes_.choices,
                               asked % sizes_.choices);
            }
        }
        for (; written < sizes_.constraints; ++written) {
            add_random_constraint();
        }
        return text_;
    }

  private:
    std::size_t below(std::size_t bound) { return random_() % bound; }
    std::size_t other_option() { return kAskedOptions + below(sizes_.options - kAskedOptions); }

    void add_option(std::size_t option) {
        const std::string name = option_name(option);
        text_ += "*OpenUI *" + name + "/Feature " + std::to_string(option) + ": PickOne\n*Default" + name +
                 ": None\n";
        for (std::size_t choice = 0; choice < sizes_.choices; ++choice) {
            text_ +=
                "*" + name + " " + choice_name(choice) + "/Setting " + std::to_string(choice) + ": \"\"\n";
        }
        text_ += "*CloseUI: *" + name + "\n";
    }
    static std::string half(std::size_t option, std::size_t choice) {
        return " *" + option_name(option) + " " + choice_name(choice);
    }
    void add_constraint(std::size_t option1, std::size_t choice1, std::size_t option2, std::size_t choice2) {
        text_ += "*UIConstraints:" + half(option1, choice1) + half(option2, choice2) + "\n";
    }
    void add_random_constraint() {
        const std::size_t option1 = other_option();
        const std::size_t option2 = other_option();
        const std::size_t form = below(1000);
        const bool none = form < sizes_.per_mille_without_choice;
        const bool one = !none && form < sizes_.per_mille_without_choice + sizes_.per_mille_with_one_choice;
        const bool first = !none && !(one && form % 2 == 0);
        const bool second = !none && !(one && form % 2 == 1);
        const std::size_t choice1 = 1 + below(sizes_.choices - 1);
        const std::size_t choice2 = 1 + below(sizes_.choices - 1);
        text_ += "*UIConstraints:" + (first ? half(option1, choice1) : " *" + option_name(option1)) +
                 (second ? half(option2, choice2) : " *" + option_name(option2)) + "\n";
    }

    PpdSizes sizes_;
    std::mt19937 random_{20220901};
    std::string text_;
};

} // namespace specialpages::bench
