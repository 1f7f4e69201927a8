#include "adapters/odbc/answers.h"

#include "adapters/odbc/diagnostics.h"
#include "adapters/odbc/wide_text.h"
#include "base/text/text.h"

#include <array>
#include <charconv>
#include <optional>

namespace opd::adapters::odbc {

namespace {

struct Column {
    std::string name;
    SQLSMALLINT type = 0;
    SQLSMALLINT scale = 0;
};

/// A failure is thrown once everything was read: what stands behind it has still to be done by the server.
class Outcome {
  public:
    explicit Outcome(SQLHSTMT statement) : m_statement(statement) {}

    /// Takes note of a call's result; false when it failed.
    bool accept(SQLRETURN result) {
        if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA)
            return true;
        ++m_failures;
        if (!m_first)
            m_first = errorOf(SQL_HANDLE_STMT, m_statement);
        return false;
    }

    /// A lost connection fails for ever.
    bool isHopeless() const { return m_failures > most || (m_first && m_first->sqlState().starts_with("08")); }

    void throwFailure() const {
        if (m_first)
            throw ado::Error(*m_first);
    }

  private:
    static constexpr int most = 20;

    SQLHSTMT m_statement;
    std::optional<ado::Error> m_first;
    int m_failures = 0;
};

std::vector<Column> columnsOf(SQLHSTMT statement) {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement, &count);
    std::vector<Column> columns(static_cast<std::size_t>(count));
    for (SQLSMALLINT i = 0; i < count; ++i) {
        Column& column = columns[static_cast<std::size_t>(i)];
        std::array<SQLWCHAR, 256> name{};
        SQLSMALLINT length = 0, nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(statement, static_cast<SQLUSMALLINT>(i + 1), name.data(),
                                           static_cast<SQLSMALLINT>(name.size()), &length, &column.type, &size,
                                           &column.scale, &nullable)))
            throw errorOf(SQL_HANDLE_STMT, statement);
        column.name = fromWide(name.data());
    }
    return columns;
}

/// One cell; empty for null.
template <class Plain> std::optional<Plain> plain(SQLHSTMT statement, SQLUSMALLINT place, SQLSMALLINT type) {
    Plain value{};
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(statement, place, type, &value, sizeof value, &length)))
        throw errorOf(SQL_HANDLE_STMT, statement);
    return length == SQL_NULL_DATA ? std::nullopt : std::optional<Plain>{value};
}

/// A text comes in pieces, each ended by a null. They are put together before they become characters: one that takes
/// two units may be split.
std::optional<std::string> text(SQLHSTMT statement, SQLUSMALLINT place) {
    std::array<SQLWCHAR, 2048> piece; // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the driver
    constexpr SQLLEN room = sizeof piece - sizeof(SQLWCHAR);
    WideText whole;
    for (;;) {
        SQLLEN length = 0; // in bytes, of all that was left
        const SQLRETURN result = SQLGetData(statement, place, SQL_C_WCHAR, piece.data(), sizeof piece, &length);
        if (result == SQL_NO_DATA)
            break;
        if (!SQL_SUCCEEDED(result))
            throw errorOf(SQL_HANDLE_STMT, statement);
        if (length == SQL_NULL_DATA)
            return std::nullopt;
        const bool isCut = length == SQL_NO_TOTAL || length > room;
        whole.append(piece.data(), static_cast<std::size_t>(isCut ? room : length) / sizeof(SQLWCHAR));
        if (result == SQL_SUCCESS)
            break;
    }
    return fromWide(whole);
}

template <class Kind> ado::Value valueOf(const std::optional<Kind>& cell) {
    return cell ? ado::Value{*cell} : ado::Value{};
}

/// Money and decimals, which are whole numbers where their column has no decimal places.
ado::Value decimal(SQLHSTMT statement, SQLUSMALLINT place, SQLSMALLINT scale) {
    const std::optional<std::string> digits = text(statement, place);
    if (!digits)
        return {};
    const char* const end = digits->data() + digits->size();
    if (std::int64_t whole = 0; scale == 0 && std::from_chars(digits->data(), end, whole).ptr == end)
        return whole;
    double number = 0;
    if (std::from_chars(digits->data(), end, number).ptr != end)
        return *digits;
    return number;
}

ado::Value moment(SQLHSTMT statement, SQLUSMALLINT place) {
    const auto stamp = plain<SQL_TIMESTAMP_STRUCT>(statement, place, SQL_C_TYPE_TIMESTAMP);
    if (!stamp)
        return {};
    return DateTime{stamp->year, stamp->month, stamp->day, stamp->hour, stamp->minute, stamp->second};
}

ado::Value cell(SQLHSTMT statement, SQLUSMALLINT place, const Column& column) {
    switch (column.type) {
    case SQL_BIT: {
        const auto bit = plain<SQLCHAR>(statement, place, SQL_C_BIT);
        return bit ? ado::Value{*bit != 0} : ado::Value{};
    }
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return valueOf(plain<std::int64_t>(statement, place, SQL_C_SBIGINT));
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return valueOf(plain<double>(statement, place, SQL_C_DOUBLE));
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return decimal(statement, place, column.scale);
    case SQL_DATE:
    case SQL_TYPE_DATE:
    case SQL_TIMESTAMP:
    case SQL_TYPE_TIMESTAMP:
        return moment(statement, place);
    default:
        return valueOf(text(statement, place));
    }
}

std::vector<std::string> namesOf(const std::vector<Column>& columns) {
    std::vector<std::string> names;
    names.reserve(columns.size());
    for (const Column& column : columns)
        names.push_back(column.name);
    return names;
}

void readRows(SQLHSTMT statement, ado::ResultSet& answer, const std::vector<Column>& columns, Outcome& outcome) {
    for (;;) {
        const SQLRETURN result = SQLFetch(statement);
        if (result == SQL_NO_DATA || !outcome.accept(result))
            return;
        auto& row = answer.rows.emplace_back();
        row.reserve(columns.size());
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.push_back(cell(statement, static_cast<SQLUSMALLINT>(i + 1), columns[i]));
    }
}

/// All results to the last one, of which the first with columns is kept.
ado::ResultSet drain(SQLHSTMT statement, SQLRETURN sent) {
    Outcome outcome(statement);
    ado::ResultSet answer;
    bool isAnswered = false;
    for (SQLRETURN result = sent; result != SQL_NO_DATA; result = SQLMoreResults(statement)) {
        if (!outcome.accept(result)) {
            if (outcome.isHopeless())
                break;
            continue;
        }
        const std::vector<Column> columns = columnsOf(statement);
        if (columns.empty() || isAnswered)
            continue;
        isAnswered = true;
        answer.columns = namesOf(columns);
        readRows(statement, answer, columns, outcome);
        if (outcome.isHopeless())
            break;
    }
    outcome.throwFailure();
    return answer;
}

/// Room for an output parameter of variable-length text.
struct OutputRoom {
    explicit OutputRoom(int characters) : units(static_cast<std::size_t>(characters) + 1) {}

    std::vector<SQLWCHAR> units;
    SQLLEN length = SQL_NULL_DATA; ///< in bytes

    ado::Value value() const {
        if (length == SQL_NULL_DATA)
            return {};
        const std::size_t told = length < 0 ? units.size() - 1 : static_cast<std::size_t>(length) / sizeof(SQLWCHAR);
        return fromWide({units.data(), std::min(told, units.size() - 1)});
    }
};

void bind(SQLHSTMT statement, SQLUSMALLINT place, int characters, OutputRoom& room) {
    const SQLRETURN result =
        SQLBindParameter(statement, place, SQL_PARAM_OUTPUT, SQL_C_WCHAR, SQL_VARCHAR, static_cast<SQLULEN>(characters),
                         0, room.units.data(), static_cast<SQLLEN>(room.units.size() * sizeof(SQLWCHAR)), &room.length);
    if (!SQL_SUCCEEDED(result))
        throw errorOf(SQL_HANDLE_STMT, statement);
}

SQLRETURN send(SQLHSTMT statement, const std::string& utf8) {
    WideText wide = toWide(utf8);
    return SQLExecDirectW(statement, wide.data(), static_cast<SQLINTEGER>(wide.size()));
}

} // namespace

ado::ResultSet answerOf(const Query& query, const std::string& statement) {
    return drain(query.handle(), send(query.handle(), statement));
}

std::vector<ado::Value> outputsOf(const Query& query, const ado::Call& call) {
    std::vector<OutputRoom> rooms;
    std::string marks;
    for (const ado::Call::Output& output : call.outputs) {
        rooms.emplace_back(output.size);
        marks += marks.empty() ? "?" : ",?";
    }
    for (std::size_t i = 0; i < rooms.size(); ++i)
        bind(query.handle(), static_cast<SQLUSMALLINT>(i + 1), call.outputs[i].size, rooms[i]);
    SQLSetStmtAttrW(query.handle(), SQL_ATTR_NOSCAN, nullptr, 0); // the braces are the driver's own here
    drain(query.handle(), send(query.handle(), "{call " + call.procedure + "(" + marks + ")}"));
    std::vector<ado::Value> values;
    values.reserve(rooms.size());
    for (const OutputRoom& room : rooms)
        values.push_back(room.value());
    return values;
}

} // namespace opd::adapters::odbc
