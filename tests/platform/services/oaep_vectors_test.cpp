// RSAES-OAEP with SHA-256 against published vectors: tests/data/vectors/oaep-sha256-sha256.txt, of the
// vectors that the Python Cryptographic Authority publishes.
#include "platform/foundation/atomic_file.h"
#include "support/bytes.h"
#include "support/oaep_opener.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::platform {
namespace {

using test::from_hex;
using test::TestKey;
using test::to_hex;

struct OaepMessage {
    std::string message;
    std::string encryption;
};

struct OaepExample {
    std::string modulus;
    std::string publicExponent;
    std::string privateExponent;
    std::vector<OaepMessage> messages;
};

/// An exponent of five digits is written as five digits.
Bytes number(const std::string& hex) {
    return from_hex(hex.size() % 2 == 0 ? hex : "0" + hex);
}

/// Lines of a name behind "# ", each followed by one of hexadecimal digits.
std::vector<OaepExample> published_examples() {
    std::istringstream lines(
        read_file(paths::source_dir() + "/tests/data/vectors/oaep-sha256-sha256.txt").value_or(""));
    std::vector<OaepExample> examples;
    std::string name;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("# Example")) {
            examples.emplace_back();
        }
        if (line.starts_with("#")) {
            name = line;
        } else if (name == "# Modulus:") {
            examples.back().modulus = line;
        } else if (name == "# Public exponent:") {
            examples.back().publicExponent = line;
        } else if (name == "# Exponent:") { // the public key comes first
            examples.back().privateExponent = line;
        } else if (name == "# Message:") {
            examples.back().messages.push_back({line, ""});
        } else if (name == "# Encryption:") {
            examples.back().messages.back().encryption = line;
        }
    }
    return examples;
}

TEST(RsaOaep, TheOpenerOpensEveryPublishedVector) {
    std::size_t opened = 0;
    for (const OaepExample& example : published_examples()) {
        const TestKey key(number(example.modulus), number(example.publicExponent),
                          number(example.privateExponent));
        for (const OaepMessage& vector : example.messages) {
            const auto message = key.open(from_hex(vector.encryption));
            ASSERT_TRUE(message) << vector.encryption;
            EXPECT_EQ(to_hex(*message), vector.message);
            ++opened;
        }
    }
    EXPECT_EQ(opened, 60U);
}

TEST(RsaOaep, WrapsForThePublishedKeys) {
    const auto examples = published_examples();
    ASSERT_EQ(examples.size(), 10U);
    for (const OaepExample& example : examples) {
        const TestKey key(number(example.modulus), number(example.publicExponent),
                          number(example.privateExponent));
        for (const OaepMessage& vector : example.messages) {
            CryptoError error;
            const auto wrapped = SecKeyCreateEncryptedData(key.publicDer(), from_hex(vector.message), error);
            ASSERT_TRUE(wrapped) << error.description;
            EXPECT_NE(to_hex(*wrapped), vector.encryption) << "its seed is its own";
            const auto message = key.open(*wrapped);
            ASSERT_TRUE(message);
            EXPECT_EQ(to_hex(*message), vector.message);
        }
    }
}

} // namespace
} // namespace specialpages::platform
