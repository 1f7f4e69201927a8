#pragma once

#include "server/types.h"

#include <vector>

namespace opd::testserver {

struct Parameter {
    std::string name; ///< with its "@"; empty when it is known by its place
    bool isOutput = false;
    Type type;
    ado::Value value;
};

/// A call of a procedure by its name or by its number among those that every server has.
struct RpcRequest {
    static constexpr std::uint16_t executeSql = 10;

    std::uint16_t number = 0; ///< 0 where it is called by its name
    std::string name;
    std::vector<Parameter> parameters;
};

struct TransactionRequest {
    enum Kind : std::uint16_t { Begin = 5, Commit = 7, Rollback = 8 };

    std::uint16_t kind = 0;
    bool beginsNext = false; ///< a commit or rollback that begins the next transaction
};

/// The text of a batch, UTF-8.
std::string readBatch(std::string_view content);

RpcRequest readRpc(std::string_view content);

TransactionRequest readTransaction(std::string_view content);

/// The names that declarations such as "@a int, @b nvarchar(20)" give, in their order.
std::vector<std::string> declaredNames(const std::string& declarations);

/// A value as it stands in a statement text.
std::string literalOf(const ado::Value& value);

/// The statement with its parameters replaced by their values. `declarations` name those that come without a name.
std::string withValues(const std::string& statement, const std::string& declarations,
                       std::vector<Parameter> parameters);

} // namespace opd::testserver
