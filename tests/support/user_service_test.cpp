#include "platform/services/accounts.h"
#include "platform/services/identity.h"
#include "support/bytes.h"
#include "support/user_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace specialpages {
namespace {

using platform::Account;
using platform::CSIdentity;
using platform::CSIdentityQuery;
using platform::Group;
using test::LoggedLines;
using testing::ElementsAre;
using testing::IsEmpty;

/// Accounts and groups that a test writes down.
class WrittenAccounts : public platform::AccountDatabase {
  public:
    std::uint32_t getuid() const override { return uid; }
    std::optional<Account> getpwuid(std::uint32_t id) const override {
        return first(all, [&](const Account& account) { return account.uid == id; });
    }
    std::optional<Account> getpwnam(const std::string& name) const override {
        return first(all, [&](const Account& account) { return account.name == name; });
    }
    std::optional<Group> getgrnam(const std::string& name) const override {
        return first(allGroups, [&](const Group& group) { return group.name == name; });
    }
    std::vector<Group> groups() const override { return allGroups; }
    std::vector<Account> accounts() const override { return all; }

    std::uint32_t uid = 1000;
    std::vector<Account> all{{"root", 0, 0}, {"ann", 1000, 1000}, {"bob", 1001, 27}, {"eve", 1002, 1002}};
    std::vector<Group> allGroups;

  private:
    template <class Entry, class Test>
    static std::optional<Entry> first(const std::vector<Entry>& entries, const Test& test) {
        const auto found = std::find_if(entries.begin(), entries.end(), test);
        return found == entries.end() ? std::nullopt : std::optional(*found);
    }
};

class UserService : public testing::Test {
  public:
    UserService() {
        auto accounts = std::make_unique<WrittenAccounts>();
        accounts_ = accounts.get();
        platform::set_account_database(std::move(accounts));
    }
    ~UserService() override {
        platform::set_account_database(nullptr);
        platform::set_administrator_groups(std::nullopt);
        platform::restoreLocalIdentityAuthority();
    }
    UserService(const UserService&) = delete;
    UserService& operator=(const UserService&) = delete;

  protected:
    WrittenAccounts* accounts_ = nullptr;
    LoggedLines log_;
};

TEST_F(UserService, MembersOfTheGroupAdminAreAdministrators) {
    accounts_->allGroups = {{"admin", 80, {"ann"}}, {"sudo", 27, {"eve"}}};
    EXPECT_TRUE(checkIfAdminUser("ann"));
    EXPECT_FALSE(checkIfAdminUser("bob")) << "the other groups stand back";
    EXPECT_FALSE(checkIfAdminUser("eve"));
    EXPECT_FALSE(checkIfAdminUser("root")) << "whoever is not listed is none";
    EXPECT_FALSE(checkIfAdminUser("nobody-there"));
    EXPECT_THAT(log_.all(), IsEmpty());
}

TEST_F(UserService, ThePrimaryGroupMakesAMemberToo) {
    accounts_->allGroups = {{"admin", 27, {}}};
    EXPECT_TRUE(checkIfAdminUser("bob"));
    EXPECT_FALSE(checkIfAdminUser("ann"));
}

TEST_F(UserService, WithoutAGroupAdminItsStandInsCount) {
    EXPECT_THAT(platform::administrator_groups(), ElementsAre("lpadmin", "sudo", "wheel"));
    accounts_->allGroups = {
        {"wheel", 10, {"ann"}}, {"lpadmin", 110, {"eve"}}, {"sudo", 27, {}}, {"Admin", 5, {"root"}}};
    EXPECT_TRUE(checkIfAdminUser("ann"));
    EXPECT_TRUE(checkIfAdminUser("bob"));
    EXPECT_TRUE(checkIfAdminUser("eve"));
    EXPECT_FALSE(checkIfAdminUser("root")) << "names are matched exactly";
    platform::set_administrator_groups(std::vector<std::string>{"printers"});
    EXPECT_FALSE(checkIfAdminUser("ann"));
    accounts_->allGroups.push_back({"printers", 111, {"ann"}});
    EXPECT_TRUE(checkIfAdminUser("ann"));
}

TEST_F(UserService, WithoutAnyOfTheGroupsNobodyIsAnAdministrator) {
    accounts_->allGroups = {{"users", 100, {"ann"}}};
    EXPECT_FALSE(checkIfAdminUser("ann"));
    EXPECT_THAT(log_.all(), IsEmpty()) << "finding none is no failure";
}

TEST_F(UserService, NamesThatAreNoneAreNoAdministrators) {
    accounts_->allGroups = {{"admin", 80, {"", "\xFF\xFE", "ann"}}};
    EXPECT_FALSE(checkIfAdminUser(std::nullopt));
    EXPECT_FALSE(checkIfAdminUser(""));
    EXPECT_FALSE(checkIfAdminUser("\xFF\xFE"));
    EXPECT_FALSE(checkIfAdminUser("an"));
    EXPECT_FALSE(checkIfAdminUser("Ann"));
    EXPECT_FALSE(checkIfAdminUser(std::string_view("ann\0", 4)));
}

TEST_F(UserService, TheProcesssUserIsAskedFor) {
    accounts_->allGroups = {{"admin", 80, {"ann", "\xFF"}}};
    EXPECT_TRUE(IsUserAdmin());
    accounts_->uid = 1002;
    EXPECT_FALSE(IsUserAdmin());
    accounts_->uid = 4242;
    EXPECT_FALSE(IsUserAdmin()) << "a user id without an account";
    accounts_->all.push_back({"\xFF", 5000, 5000});
    accounts_->uid = 5000;
    EXPECT_FALSE(IsUserAdmin()) << "a name that is not UTF-8";
}

/// An authority that fails where it is told to.
struct Failing {
    bool noQuery = false, noExecute = false, noResults = false, noMembership = false, noMembers = false;
    std::vector<CSIdentity> groups{{"admin", {"admin"}}, {"second", {"second"}}};
};

class FailingQuery : public CSIdentityQuery {
  public:
    FailingQuery(bool executes, std::optional<std::vector<CSIdentity>> results)
        : executes_(executes), results_(std::move(results)) {}
    bool execute() override { return executes_; }
    std::optional<std::vector<CSIdentity>> copyResults() override { return results_; }

  private:
    bool executes_;
    std::optional<std::vector<CSIdentity>> results_;
};

class FailingAuthority : public platform::CSIdentityAuthority {
  public:
    explicit FailingAuthority(Failing how) : how_(std::move(how)) {}
    std::unique_ptr<CSIdentityQuery> queryForGroupName(std::string_view name) override {
        EXPECT_EQ(name, "admin");
        if (how_.noQuery) {
            return nullptr;
        }
        return std::make_unique<FailingQuery>(!how_.noExecute,
                                              how_.noResults ? std::nullopt : std::optional(how_.groups));
    }
    std::unique_ptr<CSIdentityQuery> groupMembershipQuery(const CSIdentity& group) override {
        if (how_.noMembership) {
            return nullptr;
        }
        return std::make_unique<FailingQuery>(
            !how_.noMembers, std::vector<CSIdentity>{{group.posixName == "admin" ? "ann" : "eve", {}}});
    }

  private:
    Failing how_;
};

bool is_admin_with(Failing how) {
    platform::setLocalIdentityAuthority(std::make_unique<FailingAuthority>(std::move(how)));
    return checkIfAdminUser("ann");
}

TEST_F(UserService, OnlyTheFirstGroupFoundCounts) {
    EXPECT_TRUE(is_admin_with({}));
    EXPECT_FALSE(checkIfAdminUser("eve"));
    EXPECT_THAT(log_.all(), IsEmpty());
}

TEST_F(UserService, EveryFailureMeansNoAdministratorAndSaysWhich) {
    EXPECT_FALSE(is_admin_with({.noQuery = true}));
    EXPECT_FALSE(is_admin_with({.noExecute = true}));
    EXPECT_FALSE(is_admin_with({.noResults = true}));
    EXPECT_FALSE(is_admin_with({.noMembership = true}));
    EXPECT_FALSE(is_admin_with({.noMembers = true}));
    EXPECT_FALSE(is_admin_with({.groups = {}}));
    platform::setLocalIdentityAuthority(nullptr);
    EXPECT_FALSE(checkIfAdminUser("ann"));
    EXPECT_THAT(log_.all(), ElementsAre("UtilityService - CSIdentityQueryCreateForName failed.",
                                        "UtilityService - CSIdentityQueryExecute failed.",
                                        "UtilityService - CSIdentityQueryCopyResults failed.",
                                        "UtilityService - CSIdentityCreateGroupMembershipQuery failed."));
}

// Groups of a user.

TEST_F(UserService, AnUnknownUserIsInNoGroup) {
    accounts_->allGroups = {{"admin", 80, {"ghost"}}};
    EXPECT_FALSE(CheckUserGroups("ghost", "admin"));
    EXPECT_THAT(log_.all(), ElementsAre("groups: no such user."));
}

TEST_F(UserService, ThePrimaryGroupNeedsNoMention) {
    accounts_->allGroups = {{"users", 100, {}}, {"admin", 27, {"ann"}}};
    EXPECT_TRUE(CheckUserGroups("bob", "admin"));
    EXPECT_TRUE(CheckUserGroups("ann", "admin"));
    EXPECT_FALSE(CheckUserGroups("eve", "admin"));
    EXPECT_FALSE(CheckUserGroups("bob", "users"));
    EXPECT_FALSE(CheckUserGroups("bob", "no-such-group"));
    EXPECT_FALSE(CheckUserGroups("ann", ""));
    EXPECT_THAT(log_.all(), IsEmpty());
}

TEST_F(UserService, AllGroupsOfTheNameAreLookedThrough) {
    accounts_->allGroups = {{"admin", 80, {}}, {"admin", 81, {"eve"}}, {"admin", 27, {}}};
    EXPECT_TRUE(CheckUserGroups("eve", "admin"));
    EXPECT_TRUE(CheckUserGroups("bob", "admin"));
    EXPECT_FALSE(CheckUserGroups("ann", "admin"));
}

TEST_F(UserService, MissingNamesAreInNoGroup) {
    EXPECT_FALSE(CheckUserGroups(nullptr, "admin"));
    EXPECT_FALSE(CheckUserGroups("ann", nullptr));
    EXPECT_THAT(log_.all(), IsEmpty());
}

} // namespace
} // namespace specialpages
