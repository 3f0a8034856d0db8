#include "platform/services/accounts.h"

#include <cerrno>
#include <cstddef>
#include <grp.h>
#include <pwd.h>
#include <unistd.h>
#include <utility>

namespace specialpages::platform {

namespace {

/// Room for one entry's texts: what nearly all need, and where growing stops.
constexpr std::size_t kFirstEntryBytes = 1024;
constexpr std::size_t kMostEntryBytes = std::size_t{16} * 1024 * 1024;

Account account_of(const passwd& entry) {
    return {entry.pw_name, entry.pw_uid, entry.pw_gid};
}

Group group_of(const group& entry) {
    Group group{entry.gr_name, entry.gr_gid, {}};
    for (char** member = entry.gr_mem; member != nullptr && *member != nullptr; ++member) {
        group.members.emplace_back(*member);
    }
    return group;
}

/// Asks one of the re-entrant functions, with more room for as long as it says that there is too little.
template <class Entry, class Ask>
const Entry* find_entry(Entry& entry, std::string& texts, const Ask& ask) {
    for (std::size_t size = kFirstEntryBytes; size <= kMostEntryBytes; size *= 4) {
        texts.resize(size);
        Entry* found = nullptr;
        int code = EINTR;
        while (code == EINTR) {
            code = ask(&entry, texts.data(), texts.size(), &found);
        }
        if (code != ERANGE) {
            return found;
        }
    }
    return nullptr;
}

template <class Ask>
std::optional<Account> find_account(const Ask& ask) {
    passwd entry{};
    std::string texts;
    const passwd* found = find_entry(entry, texts, ask);
    return found == nullptr ? std::nullopt : std::optional(account_of(*found));
}

class SystemAccounts : public AccountDatabase {
  public:
    std::uint32_t getuid() const override { return ::getuid(); }

    std::optional<Account> getpwuid(std::uint32_t uid) const override {
        return find_account([&](passwd* entry, char* texts, std::size_t size, passwd** found) {
            return ::getpwuid_r(uid, entry, texts, size, found);
        });
    }

    std::optional<Account> getpwnam(const std::string& name) const override {
        return find_account([&](passwd* entry, char* texts, std::size_t size, passwd** found) {
            return ::getpwnam_r(name.c_str(), entry, texts, size, found);
        });
    }

    std::optional<Group> getgrnam(const std::string& name) const override {
        group entry{};
        std::string texts;
        const group* found =
            find_entry(entry, texts, [&](group* to, char* bytes, std::size_t size, group** result) {
                return ::getgrnam_r(name.c_str(), to, bytes, size, result);
            });
        return found == nullptr ? std::nullopt : std::optional(group_of(*found));
    }

    std::vector<Group> groups() const override {
        std::vector<Group> all;
        ::setgrent();
        while (const group* entry = ::getgrent()) {
            all.push_back(group_of(*entry));
        }
        ::endgrent();
        return all;
    }

    std::vector<Account> accounts() const override {
        std::vector<Account> all;
        ::setpwent();
        while (const passwd* entry = ::getpwent()) {
            all.push_back(account_of(*entry));
        }
        ::endpwent();
        return all;
    }
};

std::unique_ptr<AccountDatabase>& current_database() {
    static std::unique_ptr<AccountDatabase> database;
    return database;
}

} // namespace

AccountDatabase::~AccountDatabase() = default;

const AccountDatabase& account_database() {
    static const SystemAccounts system;
    const AccountDatabase* other = current_database().get();
    return other != nullptr ? *other : system;
}

void set_account_database(std::unique_ptr<AccountDatabase> database) {
    current_database() = std::move(database);
}

} // namespace specialpages::platform
