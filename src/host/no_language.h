// libcups takes the language of its messages, and which of a PPD's translated attributes it keeps, from the
// locale and the environment at each call. Neither may depend on the user's locale.
#pragma once

#include <optional>
#include <string>

namespace specialpages::host {

/// While one lives, libcups sees no language. Its beginning and its end write to the environment and to the
/// locale of the process, which no other thread may read then; in between they are left alone. One inside
/// another does nothing.
class NoLanguage {
  public:
    NoLanguage();
    ~NoLanguage();
    NoLanguage(const NoLanguage&) = delete;
    NoLanguage& operator=(const NoLanguage&) = delete;

  private:
    std::string locale_;                     ///< before it
    std::optional<std::string> environment_; ///< before it
    bool holds_ = false;                     ///< whether it has something to restore
};

} // namespace specialpages::host
