#include "server/request.h"

#include "base/text/text.h"

#include <cctype>

namespace opd::testserver {

namespace {

/// A request begins with headers behind their whole length.
Reader behindHeaders(std::string_view content) {
    const auto length = Reader(content).get<std::uint32_t>();
    if (length < sizeof(length) || length > content.size())
        throw Disconnected("headers that are longer than their request");
    return Reader(content.substr(length));
}

bool isOfName(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_' || character == '@' ||
           character == '#';
}

const Parameter* named(const std::vector<Parameter>& parameters, std::string_view name) {
    for (const Parameter& parameter : parameters)
        if (text::equalsIgnoringCase(parameter.name, name))
            return &parameter;
    return nullptr;
}

} // namespace

std::string readBatch(std::string_view content) {
    return fromUtf16(behindHeaders(content).rest());
}

RpcRequest readRpc(std::string_view content) {
    constexpr std::uint16_t byNumber = 0xFFFF;
    Reader reader = behindHeaders(content);
    RpcRequest request;
    const auto length = reader.get<std::uint16_t>();
    if (length == byNumber)
        request.number = reader.get<std::uint16_t>();
    else
        request.name = fromUtf16(reader.raw(std::size_t{length} * 2));
    reader.raw(2); // flags
    while (!reader.atEnd()) {
        Parameter parameter;
        parameter.name = reader.text<std::uint8_t>();
        parameter.isOutput = (reader.get<std::uint8_t>() & 1U) != 0;
        parameter.type = readType(reader);
        parameter.value = readValue(reader, parameter.type);
        request.parameters.push_back(std::move(parameter));
    }
    return request;
}

TransactionRequest readTransaction(std::string_view content) {
    Reader reader = behindHeaders(content);
    TransactionRequest request;
    request.kind = reader.get<std::uint16_t>();
    if (request.kind == TransactionRequest::Commit || request.kind == TransactionRequest::Rollback) {
        reader.raw(reader.get<std::uint8_t>()); // a name
        request.beginsNext = (reader.get<std::uint8_t>() & 1U) != 0;
    }
    return request;
}

std::vector<std::string> declaredNames(const std::string& declarations) {
    std::vector<std::string> names;
    for (std::size_t at = declarations.find('@'); at != std::string::npos; at = declarations.find('@', at)) {
        const std::size_t start = at;
        while (at < declarations.size() && isOfName(declarations[at]))
            ++at;
        names.push_back(declarations.substr(start, at - start));
    }
    return names;
}

std::string literalOf(const ado::Value& value) {
    return value.isNull() ? "NULL" : "'" + text::replaced(value.asText(), "'", "''") + "'";
}

std::string withValues(const std::string& statement, const std::string& declarations,
                       std::vector<Parameter> parameters) {
    const std::vector<std::string> names = declaredNames(declarations);
    for (std::size_t place = 0; place < std::min(parameters.size(), names.size()); ++place)
        if (parameters[place].name.empty())
            parameters[place].name = names[place];
    std::string result;
    bool quoted = false;
    for (std::size_t at = 0; at < statement.size();) {
        quoted = quoted != (statement[at] == '\'');
        std::size_t end = at + 1;
        while (!quoted && statement[at] == '@' && end < statement.size() && isOfName(statement[end]))
            ++end;
        const std::string piece = statement.substr(at, end - at);
        const Parameter* parameter = quoted ? nullptr : named(parameters, piece);
        result += parameter != nullptr ? literalOf(parameter->value) : piece;
        at = end;
    }
    return result;
}

} // namespace opd::testserver
