#include "support/user_service.h"

#include "platform/foundation/log.h"
#include "platform/foundation/text.h"
#include "platform/services/accounts.h"
#include "platform/services/identity.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace specialpages {

namespace {

using Identities = std::optional<std::vector<platform::CSIdentity>>;

void complain(const char* operation) {
    platform::NSLog(std::string("UtilityService - ") + operation + " failed.");
}

/// The groups that bear the name of the administrators' group; null, and logged, when that can't be told.
Identities admin_groups(platform::CSIdentityAuthority& authority) {
    const auto query = authority.queryForGroupName(platform::kAdminGroup);
    if (!query) {
        complain("CSIdentityQueryCreateForName");
        return std::nullopt;
    }
    if (!query->execute()) {
        complain("CSIdentityQueryExecute");
        return std::nullopt;
    }
    Identities groups = query->copyResults();
    query->stop();
    if (!groups) {
        complain("CSIdentityQueryCopyResults");
    }
    return groups;
}

Identities members_of(platform::CSIdentityAuthority& authority, const platform::CSIdentity& group) {
    const auto query = authority.groupMembershipQuery(group);
    if (!query) {
        complain("CSIdentityCreateGroupMembershipQuery");
        return std::nullopt;
    }
    return query->execute() ? query->copyResults() : std::nullopt;
}

} // namespace

bool IsUserAdmin() {
    const platform::AccountDatabase& database = platform::account_database();
    const auto account = database.getpwuid(database.getuid());
    return account && checkIfAdminUser(account->name);
}

bool checkIfAdminUser(std::optional<std::string_view> user) {
    if (!user || user->empty() || !platform::is_valid_utf8(*user)) {
        return false;
    }
    platform::CSIdentityAuthority* authority = platform::CSGetLocalIdentityAuthority();
    const Identities groups = authority != nullptr ? admin_groups(*authority) : std::nullopt;
    const Identities members =
        groups && !groups->empty() ? members_of(*authority, groups->front()) : std::nullopt;
    return members && std::any_of(members->begin(), members->end(), [&](const platform::CSIdentity& member) {
               return member.posixName == *user;
           });
}

bool CheckUserGroups(const char* user, const char* group) {
    if (user == nullptr || group == nullptr) {
        return false;
    }
    const platform::AccountDatabase& database = platform::account_database();
    const auto account = database.getpwnam(user);
    if (!account) {
        platform::NSLog("groups: no such user.\n");
        return false;
    }
    const std::vector<platform::Group> groups = database.groups();
    return std::any_of(groups.begin(), groups.end(), [&](const platform::Group& candidate) {
        return candidate.name == group && (candidate.gid == account->primaryGroup ||
                                           std::find(candidate.members.begin(), candidate.members.end(),
                                                     user) != candidate.members.end());
    });
}

} // namespace specialpages
