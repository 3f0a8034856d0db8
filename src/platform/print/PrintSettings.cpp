#include "platform/print/PrintSettings.h"

#include <utility>

namespace specialpages::platform {

OSStatus PrintSettings::setValue(std::string_view key, SettingsValue value, bool locked) {
    if (key.empty()) {
        return paramErr;
    }
    const auto [place, isNew] = places_.try_emplace(std::string(key), entries_.size());
    if (isNew) {
        entries_.push_back({std::string(key), std::move(value), locked});
    } else {
        entries_[place->second].value = std::move(value);
        entries_[place->second].locked = locked;
    }
    return noErr;
}

const SettingsValue* PrintSettings::value(std::string_view key) const {
    const auto place = places_.find(std::string(key));
    return place == places_.end() ? nullptr : &entries_[place->second].value;
}

bool PrintSettings::remove(std::string_view key) {
    const auto place = places_.find(std::string(key));
    if (place == places_.end()) {
        return false;
    }
    const std::size_t removed = place->second;
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(removed));
    places_.erase(place);
    for (auto& [other, index] : places_) {
        if (index > removed) {
            --index;
        }
    }
    return true;
}

OSStatus PMPrintSettingsSetValue(PrintSettings* settings, std::string_view key, SettingsValue value,
                                 bool locked) {
    return settings == nullptr ? paramErr : settings->setValue(key, std::move(value), locked);
}

OSStatus PMPrintSettingsGetValue(const PrintSettings* settings, std::string_view key, SettingsValue& out) {
    if (settings == nullptr || key.empty()) {
        return paramErr;
    }
    const SettingsValue* found = settings->value(key);
    if (found == nullptr) {
        return kPMKeyNotFound;
    }
    out = *found;
    return noErr;
}

} // namespace specialpages::platform
