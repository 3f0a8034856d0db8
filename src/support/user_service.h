// Whether a user administers the machine and may write preferences that all users share. All questions go to
// the platform's account database and local identity authority: nobody is asked for a password.
#pragma once

#include <optional>
#include <string_view>

namespace specialpages {

/// Whether the user that the process runs for is an administrator. False for a user id without an account.
bool IsUserAdmin();

/// Whether the user of that name is a member of the group "admin", or of what stands for it (see
/// platform/services/identity.h). Nobody is one by birth: the superuser too must be listed. False for a null
/// or empty name, for one that is not UTF-8, and for every failure on the way, which is logged.
bool checkIfAdminUser(std::optional<std::string_view> user);

/// Whether the group is the account's primary group or lists the account; several groups may bear the name.
/// False, and "groups: no such user." is logged, for a user without an account. False for null arguments.
bool CheckUserGroups(const char* user, const char* group);

} // namespace specialpages
