// Identities and group membership, asked in the steps of the platform's identity service. The local authority
// answers from the account and group databases (platform/services/accounts.h): it asks for no password and
// waits for nobody. The group "admin" stands for those who administer the machine: where no group bears that
// name, its members are those of the administrator groups below, of every one that exists.
#pragma once

#include "platform/export.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::platform {

/// A user or a group.
struct CSIdentity {
    std::string posixName;
    /// The names in the group database that a group stands for; empty for a user.
    std::vector<std::string> groups;
};

class SPECIALPAGES_PLATFORM_API CSIdentityQuery {
  public:
    CSIdentityQuery() = default;
    CSIdentityQuery(const CSIdentityQuery&) = delete;
    CSIdentityQuery& operator=(const CSIdentityQuery&) = delete;
    virtual ~CSIdentityQuery();

    /// False when the authority can't be asked.
    virtual bool execute() = 0;
    /// What was found; empty optional before execute() has run.
    virtual std::optional<std::vector<CSIdentity>> copyResults() = 0;
    virtual void stop() {}
};

class SPECIALPAGES_PLATFORM_API CSIdentityAuthority {
  public:
    CSIdentityAuthority() = default;
    CSIdentityAuthority(const CSIdentityAuthority&) = delete;
    CSIdentityAuthority& operator=(const CSIdentityAuthority&) = delete;
    virtual ~CSIdentityAuthority();

    /// A question for the groups of exactly that name; null when it can't be asked.
    virtual std::unique_ptr<CSIdentityQuery> queryForGroupName(std::string_view name) = 0;
    /// A question for the users who are members of that group; null when it can't be asked.
    virtual std::unique_ptr<CSIdentityQuery> groupMembershipQuery(const CSIdentity& group) = 0;
};

/// The local authority, owned by the platform; null when a test has taken it away.
SPECIALPAGES_PLATFORM_API CSIdentityAuthority* CSGetLocalIdentityAuthority();
/// Puts another authority, or none, in its place.
SPECIALPAGES_PLATFORM_API void setLocalIdentityAuthority(std::unique_ptr<CSIdentityAuthority> authority);
SPECIALPAGES_PLATFORM_API void restoreLocalIdentityAuthority();

/// The groups that stand for "admin" where no group bears that name: the build's setting
/// SPECIALPAGES_ADMINISTRATOR_GROUPS, or what was set since.
SPECIALPAGES_PLATFORM_API const std::vector<std::string>& administrator_groups();
/// Empty optional brings the build's setting back.
SPECIALPAGES_PLATFORM_API void set_administrator_groups(std::optional<std::vector<std::string>> names);

inline constexpr std::string_view kAdminGroup = "admin";

} // namespace specialpages::platform
