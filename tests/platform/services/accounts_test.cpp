#include "platform/services/accounts.h"
#include "platform/services/identity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <unistd.h>

namespace specialpages::platform {
namespace {

using ::testing::ElementsAre;

// The system's own databases: every machine has a superuser and its group, and nothing else is taken for
// granted.

TEST(SystemAccounts, KnowTheSuperuserByNumberAndByName) {
    const AccountDatabase& database = account_database();
    const auto byNumber = database.getpwuid(0);
    ASSERT_TRUE(byNumber);
    EXPECT_EQ(byNumber->uid, 0U);
    const auto byName = database.getpwnam(byNumber->name);
    ASSERT_TRUE(byName);
    EXPECT_EQ(byName->uid, 0U);
    EXPECT_EQ(database.getuid(), ::getuid());
    const std::vector<Account> all = database.accounts();
    EXPECT_TRUE(std::any_of(all.begin(), all.end(), [](const Account& account) { return account.uid == 0; }));
}

TEST(SystemAccounts, ListTheirGroupsTheSameEachTime) {
    const AccountDatabase& database = account_database();
    const std::vector<Group> once = database.groups();
    const std::vector<Group> again = database.groups();
    ASSERT_FALSE(once.empty());
    ASSERT_EQ(once.size(), again.size());
    const auto found = database.getgrnam(once.front().name);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->gid, once.front().gid);
    EXPECT_EQ(found->members, once.front().members);
}

TEST(SystemAccounts, KnowNobodyElse) {
    const AccountDatabase& database = account_database();
    for (const char* name : {"", "no such user", "\xFF\xFE", "a:b", "../passwd"}) {
        EXPECT_FALSE(database.getpwnam(name)) << name;
        EXPECT_FALSE(database.getgrnam(name)) << name;
    }
    EXPECT_FALSE(database.getpwnam(std::string(100000, 'x')));
    EXPECT_FALSE(database.getpwuid(4294967294U - 12345));
}

TEST(LocalAuthority, AsksTheDatabaseInSteps) {
    CSIdentityAuthority* authority = CSGetLocalIdentityAuthority();
    ASSERT_NE(authority, nullptr);
    const std::string name = account_database().groups().front().name;
    const auto query = authority->queryForGroupName(name);
    ASSERT_NE(query, nullptr);
    EXPECT_EQ(query->copyResults(), std::nullopt) << "before it has run";
    EXPECT_TRUE(query->execute());
    const auto groups = query->copyResults();
    ASSERT_TRUE(groups && groups->size() == 1);
    EXPECT_EQ(groups->front().posixName, name);
    EXPECT_THAT(groups->front().groups, ElementsAre(name));
    const auto none = authority->queryForGroupName("no such group");
    EXPECT_TRUE(none->execute());
    EXPECT_TRUE(none->copyResults()->empty());
}

TEST(LocalAuthority, CanBeTakenAwayAndComesBack) {
    setLocalIdentityAuthority(nullptr);
    EXPECT_EQ(CSGetLocalIdentityAuthority(), nullptr);
    restoreLocalIdentityAuthority();
    EXPECT_NE(CSGetLocalIdentityAuthority(), nullptr);
}

} // namespace
} // namespace specialpages::platform
