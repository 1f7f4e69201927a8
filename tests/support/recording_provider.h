#pragma once

#include "ado/error.h"
#include "ado/provider.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace opd::tests {

/// A database that remembers what it was sent and answers from rules. A statement without a rule answers no rows.
class RecordingProvider final : public ado::Provider {
  public:
    /// Answers every statement that begins with `start`; the latest matching rule counts.
    void answer(const std::string& start, ado::ResultSet rows) {
        m_rules.emplace_back(start, [rows](const ado::Request&) { return rows; });
    }

    /// Lets every statement that begins with `start` fail.
    void failOn(const std::string& start, const std::string& message) {
        m_rules.emplace_back(start, [message](const ado::Request&) -> ado::ResultSet { throw ado::Error(message); });
    }

    void forgetRules(const std::string& start) {
        std::erase_if(m_rules, [&](const auto& rule) { return rule.first == start; });
    }

    /// What the procedures with output parameters give, by the parameter's name.
    std::vector<std::pair<std::string, ado::Value>> outputs{{"@HospNum", "00000012"}, {"@IdNum", "26A0000007"}};

    std::string commitFailure; ///< what the next commit fails with, when not empty

    std::vector<ado::Request> requests;
    std::string log; ///< statements, calls, "begin", "commit", "rollback", a line each

    bool serves(const ado::ConnectionString&) const override { return true; }
    std::unique_ptr<ado::Link> open(const ado::ConnectionString&, const ado::Link::OnWait&) override {
        return std::make_unique<RecordingLink>(*this);
    }

  private:
    class RecordingLink final : public ado::Link {
      public:
        explicit RecordingLink(RecordingProvider& provider) : m_provider(provider) {}

        ado::ResultSet run(const ado::Request& request) override {
            m_provider.requests.push_back(request);
            m_provider.log += request.text + "\n";
            for (auto rule = m_provider.m_rules.rbegin(); rule != m_provider.m_rules.rend(); ++rule)
                if (request.text.starts_with(rule->first))
                    return rule->second(request);
            return {};
        }

        std::vector<ado::Value> call(const ado::Call& call) override {
            m_provider.log += "{call " + call.procedure + "(?)}\n";
            for (const auto& [start, rule] : m_provider.m_rules)
                if (call.procedure.starts_with(start))
                    rule({});
            std::vector<ado::Value> values;
            for (const ado::Call::Output& output : call.outputs)
                for (const auto& [name, value] : m_provider.outputs)
                    if (name == output.name)
                        values.push_back(value);
            return values;
        }

        void begin() override { m_provider.log += "begin\n"; }
        void commit() override {
            m_provider.log += "commit\n";
            if (!m_provider.commitFailure.empty())
                throw ado::Error(std::exchange(m_provider.commitFailure, {}));
        }
        void rollback() override { m_provider.log += "rollback\n"; }

      private:
        RecordingProvider& m_provider;
    };

    std::vector<std::pair<std::string, std::function<ado::ResultSet(const ado::Request&)>>> m_rules;
};

/// One row with named values.
inline ado::ResultSet oneRow(std::vector<std::pair<std::string, ado::Value>> cells) {
    std::vector<std::string> columns;
    std::vector<ado::Value> row;
    for (auto& [column, value] : cells) {
        columns.push_back(column);
        row.push_back(std::move(value));
    }
    return {std::move(columns), {std::move(row)}};
}

} // namespace opd::tests
