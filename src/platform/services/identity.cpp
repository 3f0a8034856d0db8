#include "platform/services/identity.h"

#include "platform/services/accounts.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace specialpages::platform {

namespace {

using Identities = std::vector<CSIdentity>;

class LocalQuery : public CSIdentityQuery {
  public:
    explicit LocalQuery(std::function<Identities()> ask) : ask_(std::move(ask)) {}
    bool execute() override {
        results_ = ask_();
        return true;
    }
    std::optional<Identities> copyResults() override { return results_; }

  private:
    std::function<Identities()> ask_;
    std::optional<Identities> results_;
};

Identities groups_named(const std::string& name) {
    const AccountDatabase& database = account_database();
    if (database.getgrnam(name)) {
        return {{name, {name}}};
    }
    CSIdentity administrators{name, {}};
    if (name == kAdminGroup) {
        std::copy_if(administrator_groups().begin(), administrator_groups().end(),
                     std::back_inserter(administrators.groups),
                     [&](const std::string& group) { return database.getgrnam(group).has_value(); });
    }
    return administrators.groups.empty() ? Identities{} : Identities{std::move(administrators)};
}

Identities members_of(const CSIdentity& identity) {
    const AccountDatabase& database = account_database();
    const std::vector<Account> accounts = database.accounts();
    Identities members;
    for (const std::string& name : identity.groups) {
        const auto group = database.getgrnam(name);
        if (!group) {
            continue;
        }
        for (const std::string& member : group->members) {
            members.push_back({member, {}});
        }
        for (const Account& account : accounts) {
            if (account.primaryGroup == group->gid) {
                members.push_back({account.name, {}});
            }
        }
    }
    return members;
}

class LocalAuthority : public CSIdentityAuthority {
  public:
    std::unique_ptr<CSIdentityQuery> queryForGroupName(std::string_view name) override {
        return std::make_unique<LocalQuery>([name = std::string(name)] { return groups_named(name); });
    }
    std::unique_ptr<CSIdentityQuery> groupMembershipQuery(const CSIdentity& group) override {
        return std::make_unique<LocalQuery>([group] { return members_of(group); });
    }
};

std::unique_ptr<CSIdentityAuthority>& current_authority() {
    static std::unique_ptr<CSIdentityAuthority> authority = std::make_unique<LocalAuthority>();
    return authority;
}

/// The names of a comma list.
std::vector<std::string> split(std::string_view list) {
    std::vector<std::string> names;
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        names.emplace_back(list.substr(0, comma));
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return names;
}

std::vector<std::string>& current_administrator_groups() {
    static std::vector<std::string> names = split(SPECIALPAGES_ADMINISTRATOR_GROUPS);
    return names;
}

} // namespace

CSIdentityQuery::~CSIdentityQuery() = default;
CSIdentityAuthority::~CSIdentityAuthority() = default;

CSIdentityAuthority* CSGetLocalIdentityAuthority() {
    return current_authority().get();
}

void setLocalIdentityAuthority(std::unique_ptr<CSIdentityAuthority> authority) {
    current_authority() = std::move(authority);
}

void restoreLocalIdentityAuthority() {
    current_authority() = std::make_unique<LocalAuthority>();
}

const std::vector<std::string>& administrator_groups() {
    return current_administrator_groups();
}

void set_administrator_groups(std::optional<std::vector<std::string>> names) {
    current_administrator_groups() = names ? std::move(*names) : split(SPECIALPAGES_ADMINISTRATOR_GROUPS);
}

} // namespace specialpages::platform
