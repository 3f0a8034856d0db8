#include "platform/foundation/preferences.h"

#include "platform/foundation/atomic_file.h"
#include "platform/foundation/text.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace specialpages::platform {

namespace {

namespace fs = std::filesystem;

/// One name for the three words: "application/user/host", so that no two domains share one, whatever the
/// words hold.
std::string domain_name(std::string_view application, std::string_view user, std::string_view host) {
    const auto escaped = [](std::string_view word) {
        return replace_all(replace_all(word, "~", "~0"), "/", "~1");
    };
    return escaped(application) + "/" + escaped(user) + "/" + escaped(host);
}

bool has_store_shape(const PropertyList& list) {
    const auto* domains = std::get_if<PropertyList::Dictionary>(&list.value);
    return domains != nullptr && std::all_of(domains->begin(), domains->end(), [](const auto& domain) {
               return std::holds_alternative<PropertyList::Dictionary>(domain.second.value);
           });
}

/// What the file holds: an empty store when there is no file, an empty optional when it is no store.
std::optional<PropertyList> read_store(const fs::path& file) {
    std::error_code failed;
    if (fs::symlink_status(file, failed).type() == fs::file_type::not_found) {
        return PropertyList{};
    }
    const auto bytes = read_file(file, nullptr, kMaxPropertyListBytes);
    auto list = bytes ? parse_property_list(*bytes) : std::nullopt;
    return list && has_store_shape(*list) ? std::move(list) : std::nullopt;
}

/// Keeps other processes' synchronising out of the folder until the end, so that no change falls between
/// another's reading and writing. Where locks are not to be had it goes on without.
class FolderLock {
  public:
    explicit FolderLock(const fs::path& folder)
        : descriptor_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (descriptor_ >= 0) {
            ::flock(descriptor_, LOCK_EX);
        }
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    ~FolderLock() {
        if (descriptor_ >= 0) {
            ::close(descriptor_);
        }
    }

  private:
    int descriptor_;
};

std::unique_ptr<Preferences>& standard_store() {
    static std::unique_ptr<Preferences> store;
    return store;
}

} // namespace

Preferences::Preferences(fs::path file) : file_(std::move(file)) {}

const PropertyList& Preferences::contents() const {
    if (!contents_) {
        contents_ = read_store(file_).value_or(PropertyList{});
    }
    return *contents_;
}

std::optional<std::string> Preferences::value(std::string_view key, std::string_view application,
                                              std::string_view user, std::string_view host) const {
    const std::string domain = domain_name(application, user, host);
    for (const auto& change : pending_) {
        if (change.domain == domain && change.key == key) {
            return change.value;
        }
    }
    const PropertyList* entries = contents().find(domain);
    const PropertyList* entry = entries == nullptr ? nullptr : entries->find(key);
    const std::string* text = entry == nullptr ? nullptr : entry->text();
    return text == nullptr ? std::nullopt : std::optional(*text);
}

void Preferences::setValue(std::string_view key, std::optional<std::string> value,
                           std::string_view application, std::string_view user, std::string_view host) {
    std::string domain = domain_name(application, user, host);
    // One change an entry: the last one counts.
    std::erase_if(pending_,
                  [&](const Change& change) { return change.domain == domain && change.key == key; });
    pending_.push_back({std::move(domain), std::string(key), std::move(value)});
}

bool Preferences::synchronize() {
    std::error_code failed;
    if (!pending_.empty() && file_.has_parent_path()) {
        fs::create_directories(file_.parent_path(), failed);
    }
    const FolderLock lock(file_.has_parent_path() ? file_.parent_path() : fs::path("."));
    auto list = read_store(file_);
    if (!list) {
        return false;
    }
    for (const auto& change : pending_) {
        PropertyList* domain = list->find(change.domain);
        if (change.value && domain == nullptr) {
            list->set(change.domain, PropertyList{});
            domain = list->find(change.domain);
        }
        if (change.value) {
            domain->set(change.key, PropertyList{*change.value});
        } else if (domain != nullptr) {
            domain->remove(change.key);
        }
    }
    if (!pending_.empty() && !write_file_atomically(file_, write_property_list(*list)).empty()) {
        return false;
    }
    pending_.clear();
    contents_.reset();
    return true;
}

Preferences& standardPreferences() {
    if (!standard_store()) {
        standard_store() = std::make_unique<Preferences>(configuration_directory() / "preferences.plist");
    }
    return *standard_store();
}

void setStandardPreferences(std::unique_ptr<Preferences> preferences) {
    standard_store() = std::move(preferences);
}

std::optional<std::string> CFPreferencesCopyValue(std::string_view key, std::string_view application,
                                                  std::string_view user, std::string_view host) {
    return standardPreferences().value(key, application, user, host);
}

void CFPreferencesSetValue(std::string_view key, std::optional<std::string> value,
                           std::string_view application, std::string_view user, std::string_view host) {
    standardPreferences().setValue(key, std::move(value), application, user, host);
}

bool CFPreferencesSynchronize(std::string_view /*application*/, std::string_view /*user*/,
                              std::string_view /*host*/) {
    // One file holds all domains, so that they are synchronised together.
    return standardPreferences().synchronize();
}

} // namespace specialpages::platform
