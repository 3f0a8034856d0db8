// A random user at the running pane: a script of requests, each made up from what the pane shows at that
// moment, sensible ones and others.
#pragma once

#include "cli/cli_fixtures.h"
#include "platform/foundation/numbers.h"
#include "records/record_order.h"
#include "records/record_ticket.h"
#include "testing/paths.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <functional>
#include <optional>
#include <random>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

namespace specialpages::cli::testing {

using nlohmann::ordered_json;

inline const std::string kPpd = paths::source_dir() + "/examples/ppd/production.ppd";
inline const std::string kPrefix = "com.norvalen.nb.rtz.printsettings.";

/// An input that makes up each line when it is asked for.
class Asker : public std::streambuf {
  public:
    using Next = std::function<std::optional<std::string>()>;
    explicit Asker(Next next) : next_(std::move(next)) {}

  protected:
    int_type underflow() override {
        const auto line = next_();
        if (!line) {
            return traits_type::eof();
        }
        line_ = *line + "\n";
        setg(line_.data(), line_.data(), line_.data() + line_.size());
        return traits_type::to_int_type(line_.front());
    }

  private:
    Next next_;
    std::string line_;
};

/// One user. Asks for the state before each thing it does, and for the saved settings when no dialog is open.
class RandomUser {
  public:
    explicit RandomUser(std::uint32_t seed) : random_(seed) {}

    /// How many saved records were looked at.
    int recordsSeen() const { return recordsSeen_; }
    /// What it asked, in order.
    const std::vector<std::string>& requests() const { return requests_; }

    void run(std::size_t steps) {
        steps_ = steps;
        Asker asker([this] { return next(); });
        std::istream in(&asker);
        std::ostringstream err;
        ASSERT_EQ(run_cli({"drive", "--ppd", kPpd}, {in, out_, err}), 0) << err.str() << history();
        takeAnswer();
        EXPECT_EQ(answers_, requests_.size()) << history();
    }

  private:
    enum class Phase { start, look, act, save, check };

    std::optional<std::string> next() {
        takeAnswer();
        switch (phase_) {
        case Phase::start:
            phase_ = Phase::look;
            return asked(R"({"do":"host","call":"restore"})");
        case Phase::look:
            if (taken_ == steps_ || ::testing::Test::HasFailure()) {
                return std::nullopt; // in the middle of a dialog as often as not
            }
            phase_ = Phase::act;
            return asked(R"({"do":"state"})");
        case Phase::act:
            phase_ = Phase::save;
            ++taken_;
            return asked(act());
        case Phase::save:
            phase_ = Phase::check;
            if (last_.value("window", "") == "pane") {
                return asked(R"({"do":"host","call":"save"})");
            }
            [[fallthrough]];
        case Phase::check:
            phase_ = Phase::look;
            if (last_.value("window", "") == "pane") {
                settingsAsked_ = true;
                return asked(R"({"do":"settings"})");
            }
            return next();
        }
        return std::nullopt;
    }

    std::string asked(std::string request) {
        requests_.push_back(request);
        return request;
    }

    void takeAnswer() {
        std::istringstream lines(out_.str());
        out_.str("");
        for (std::string line; std::getline(lines, line);) {
            ++answers_;
            last_ = ordered_json::parse(line, nullptr, false);
            EXPECT_TRUE(last_.contains("ok")) << line << history();
            if (last_.contains("result") && last_["result"].is_object() &&
                last_["result"].contains("views")) {
                state_ = last_["result"];
            }
            if (settingsAsked_ && last_.contains("result")) {
                settingsAsked_ = false;
                checkOrder(last_["result"]);
            }
        }
    }

    std::size_t below(std::size_t bound) { return random_() % bound; }
    bool once_in(std::size_t times) { return below(times) == 0; }

    std::string act() {
        if (once_in(30)) {
            static const std::vector<std::string> kOdd{
                "{",
                R"({"do":"press","tag":0})",
                R"({"do":"host","call":"restore"})",
                R"({"do":"host","call":"shouldPrint"})",
                R"({"do":"mark","option":"PageSize","choice":"A3"})",
                R"({"do":"mark","option":"Duplex","choice":"DuplexTumble"})",
                R"({"do":"mark","option":"NVNumPunchHoles","choice":"CoilPunch"})"};
            return kOdd[below(kOdd.size())];
        }
        std::vector<std::string> tags;
        for (const auto& [tag, view] : state_.at("views").items()) {
            const std::string kind = view.at("class");
            if (kind != "static" && kind != "icon" && kind != "text" && kind != "view") {
                tags.push_back(tag);
            }
        }
        if (tags.empty()) {
            return R"({"do":"state"})";
        }
        // Buttons that end a dialog are few: give the others a chance first.
        const std::string tag = tags[below(tags.size())];
        return use(tag, state_.at("views").at(tag));
    }

    std::string use(const std::string& tag, const ordered_json& view) {
        const std::string kind = view.at("class");
        const std::string head = R"({"tag":)" + tag + ",";
        if (kind == "popup") {
            return head + choice(view) + "}";
        }
        if (kind == "field") {
            static const std::vector<std::string> kTexts{"3",   "1-5, 9", "0",  "",     "65000", "9-2",
                                                         "5,5", "abc",    "-1", "1,,2", "12.5",  "210.0"};
            return head + R"("do":"type","text":")" + kTexts[below(kTexts.size())] + "\"}";
        }
        if (kind == "stepper") {
            return head + R"("do":"step","value":)" + std::to_string(static_cast<int>(below(12)) - 2) + "}";
        }
        if (kind == "table") {
            return head + (once_in(4) ? R"("do":"doubleClick")" : selection(view)) + "}";
        }
        return head + R"("do":"press"})";
    }

    std::string choice(const ordered_json& view) {
        const ordered_json& items = view.at("items");
        const std::size_t item = below(items.size() + 1);
        const bool opens = item < items.size() && items[item].contains("menu");
        if (!opens) {
            return R"("do":"choose","item":)" + std::to_string(item);
        }
        return R"("do":"choose","menu":)" + std::to_string(item) + R"(,"item":)" +
               std::to_string(below(items[item]["menu"].size() + 1));
    }

    std::string selection(const ordered_json& view) {
        std::string rows;
        for (std::size_t row = 0; row < view.at("rows").size(); ++row) {
            if (once_in(2)) {
                rows += (rows.empty() ? "" : ",") + std::to_string(row);
            }
        }
        return R"("do":"selectRows","rows":[)" + rows + "]";
    }

    /// Front cover first, back cover last, pages ascending between them, an exception before an insert at the
    /// same page.
    void checkOrder(const ordered_json& settings) {
        const int count = std::stoi(settings.value(kPrefix + "NPIFCommandTicketCount", "0"));
        std::pair<std::int32_t, int> before{-1, 0};
        recordsSeen_ += count;
        for (int i = 0; i < count; ++i) {
            const std::string ticket = settings.value(kPrefix + "NPIFCommandTicket_" + std::to_string(i), "");
            const auto reading = decode_record(ticket);
            ASSERT_EQ(reading.outcome, RecordReading::Outcome::record) << ticket << history();
            const SpecialPageRecord& record = reading.record;
            if (is_front_cover(record)) {
                EXPECT_EQ(i, 0) << history();
            } else if (is_back_cover(record)) {
                EXPECT_EQ(i, count - 1) << history();
            } else {
                const std::pair<std::int32_t, int> at{platform::int_value(record.text(RecordKey::page)),
                                                      record.is(RecordType::insert) ? 1 : 0};
                EXPECT_LE(before, at) << ticket << history();
                before = at;
            }
        }
    }

    std::string history() const {
        std::string text = "\nafter";
        for (std::size_t i = requests_.size() > 40 ? requests_.size() - 40 : 0; i < requests_.size(); ++i) {
            text += "\n" + requests_[i];
        }
        return text;
    }

    std::mt19937 random_;
    std::size_t steps_ = 0;
    std::size_t taken_ = 0;
    std::size_t answers_ = 0;
    Phase phase_ = Phase::start;
    int recordsSeen_ = 0;
    bool settingsAsked_ = false;
    std::ostringstream out_;
    std::vector<std::string> requests_;
    ordered_json last_;
    ordered_json state_;
};

} // namespace specialpages::cli::testing
