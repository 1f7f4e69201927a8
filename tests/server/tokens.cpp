#include "server/tokens.h"

#include <map>

namespace opd::testserver {

namespace {

constexpr std::string_view serverName = "TESTSERVER";
constexpr std::uint32_t noUserType = 0;
constexpr std::uint16_t mayBeNull = 0x0001;
constexpr std::uint16_t countCounts = 0x10;

} // namespace

void Tokens::rows(const ado::ResultSet& result) {
    std::vector<Type> types;
    for (std::size_t column = 0; column < result.columns.size(); ++column) {
        WidestOf widest;
        for (const auto& row : result.rows)
            widest.add(row[column]);
        types.push_back(widest.type());
    }
    rows(result, types);
}

void Tokens::rows(const ado::ResultSet& result, const std::vector<Type>& types) {
    if (result.columns.empty())
        return;
    columns(result.columns.names(), types);
    for (const auto& row : result.rows) {
        m_out.put(std::uint8_t{0xD1});
        for (std::size_t column = 0; column < types.size(); ++column)
            writeValue(m_out, types[column], row[column]);
    }
}

void Tokens::columns(const std::vector<std::string>& names, const std::vector<Type>& types) {
    m_out.put(std::uint8_t{0x81}).put(static_cast<std::uint16_t>(names.size()));
    for (std::size_t column = 0; column < names.size(); ++column) {
        m_out.put(noUserType).put(mayBeNull);
        writeType(m_out, types[column]);
        m_out.text<std::uint8_t>(names[column]);
    }
}

void Tokens::returnValue(std::size_t place, const std::string& name, const Type& type, const ado::Value& value) {
    m_out.put(std::uint8_t{0xAC}).put(static_cast<std::uint16_t>(place)).text<std::uint8_t>(name);
    m_out.put(std::uint8_t{0x01}); // an output parameter
    m_out.put(noUserType).put(mayBeNull);
    writeType(m_out, type);
    writeValue(m_out, type, value);
}

std::uint8_t Tokens::classOf(long number) {
    static const std::map<long, std::uint8_t> unusual{{1205, 13}, {2627, 14}, {18456, 14}, {229, 14}, {4060, 11},
                                                      {105, 15},  {102, 15},  {823, 24},   {824, 24}};
    const auto found = unusual.find(number);
    return found == unusual.end() ? 16 : found->second;
}

void Tokens::message(std::uint8_t token, long number, std::uint8_t severity, const std::string& text) {
    Writer body;
    body.put(static_cast<std::int32_t>(number)).put(std::uint8_t{1}).put(severity);
    body.text<std::uint16_t>(text).text<std::uint8_t>(serverName).text<std::uint8_t>("");
    body.put(std::uint32_t{1});
    m_out.put(token).put(static_cast<std::uint16_t>(body.bytes.size())).raw(body.bytes);
}

void Tokens::done(Done kind, bool more, std::optional<std::uint64_t> count) {
    doneToken(kind, static_cast<std::uint16_t>((more ? 0x01 : 0) | (count ? countCounts : 0)), count.value_or(0));
}

void Tokens::doneToken(Done kind, std::uint16_t status, std::uint64_t count) {
    constexpr std::uint16_t select = 0xC1;
    m_out.put(static_cast<std::uint8_t>(kind)).put(status);
    m_out.put((status & countCounts) != 0 ? select : std::uint16_t{0});
    m_out.put(count);
}

void Tokens::change(std::uint8_t what, const std::string& now, const std::string& before) {
    envChange(Writer{}.put(what).text<std::uint8_t>(now).text<std::uint8_t>(before));
}

void Tokens::collation() {
    constexpr std::string_view latin{"\x05\x09\x04\xD0\x00\x34\x00", 7}; // its length before it, no old one behind it
    envChange(Writer{}.put(std::uint8_t{7}).raw(latin));
}

void Tokens::transaction(Transaction what, std::uint64_t number) {
    const std::string begun = Writer{}.put(std::uint8_t{8}).put(number).bytes;
    const std::string none(1, '\0');
    Writer body;
    body.put(static_cast<std::uint8_t>(what));
    envChange(what == Transaction::Begun ? body.raw(begun).raw(none) : body.raw(none).raw(begun));
}

void Tokens::envChange(const Writer& body) {
    m_out.put(std::uint8_t{0xE3}).put(static_cast<std::uint16_t>(body.bytes.size())).raw(body.bytes);
}

void Tokens::loginAccepted() {
    constexpr std::string_view version{"\x74\x00\x00\x04", 4};
    constexpr std::string_view programVersion{"\x0D\x00\x07\xD0", 4};
    Writer body;
    body.put(std::uint8_t{1}).raw(version).text<std::uint8_t>("Test server").raw(programVersion);
    m_out.put(std::uint8_t{0xAD}).put(static_cast<std::uint16_t>(body.bytes.size())).raw(body.bytes);
}

} // namespace opd::testserver
