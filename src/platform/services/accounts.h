// The system's accounts and groups: the account and group databases of the C library, with a seam for tests.
// Names are bytes and need not be UTF-8.
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::platform {

struct Account {
    std::string name;
    std::uint32_t uid = 0;
    std::uint32_t primaryGroup = 0;
};

struct Group {
    std::string name;
    std::uint32_t gid = 0;
    /// Names of the accounts that the group lists. Those whose primary group it is need not be among them.
    std::vector<std::string> members;
};

/// Each question goes to the database anew. None asks the user for anything.
class SPECIALPAGES_PLATFORM_API AccountDatabase {
  public:
    AccountDatabase() = default;
    AccountDatabase(const AccountDatabase&) = delete;
    AccountDatabase& operator=(const AccountDatabase&) = delete;
    virtual ~AccountDatabase();

    /// The user that the process runs for (its real user id).
    virtual std::uint32_t getuid() const = 0;
    virtual std::optional<Account> getpwuid(std::uint32_t uid) const = 0;
    virtual std::optional<Account> getpwnam(const std::string& name) const = 0;
    /// The first group of that exact name.
    virtual std::optional<Group> getgrnam(const std::string& name) const = 0;
    /// All groups in the database's order, from its first one on; several may bear one name.
    virtual std::vector<Group> groups() const = 0;
    /// All accounts in the database's order.
    virtual std::vector<Account> accounts() const = 0;
};

/// The system's database unless a test has put another in its place.
SPECIALPAGES_PLATFORM_API const AccountDatabase& account_database();
/// Null brings the system's back.
SPECIALPAGES_PLATFORM_API void set_account_database(std::unique_ptr<AccountDatabase> database);

} // namespace specialpages::platform
