#include "adapters/sqlite/statement_reader.h"

#include "adapters/sqlite/engine/errors.h"

namespace opd::adapters::sqlite {

namespace {

/// More than a desk and its report send in a day; a host with ever new texts does not fill the memory.
constexpr std::size_t mostShapes = 256;

} // namespace

const ReadStatement& StatementReader::read(std::string_view text) {
    Known& found = known(text);
    takeArguments(found);
    m_read.procedure = found.procedure;
    m_read.translation = &found.translation;
    m_read.prepared = found.procedure != nullptr ? found.ofProcedure : &found.ofTranslation;
    return m_read;
}

StatementReader::Known& StatementReader::known(std::string_view text) {
    if (!m_shape.read(text)) {
        parse(text, m_catalog); // which says what is wrong with it
        throw serverError("Incorrect syntax near '" + std::string{text.substr(0, 40)} + "'.", 102, "42000");
    }
    const auto found = m_known.find(m_shape.key());
    if (found != m_known.end() && standsFor(found->second))
        return found->second;
    Known fresh = taken(text);
    if (found == m_known.end() && m_known.size() >= mostShapes)
        m_known.clear();
    return m_known.insert_or_assign(m_shape.key(), std::move(fresh)).first->second;
}

/// A value that became a part of the statement must be the same again.
bool StatementReader::standsFor(const Known& known) const {
    for (std::size_t i = 0; i < known.translation.values.size(); ++i) {
        const Placeholder& place = known.translation.values[i];
        if (place.kind == Placeholder::Kind::Written && place.written != m_shape.values()[i])
            return false;
    }
    return true;
}

StatementReader::Known StatementReader::taken(std::string_view text) {
    Known known;
    auto statement = parse(text, m_catalog);
    if (const auto* call = std::get_if<ProcedureCall>(&statement)) {
        known.procedure = &findProcedure(call->database, call->procedure, m_shape.values().size());
        known.ofProcedure = &m_prepared.of(*known.procedure);
    } else {
        known.translation = std::move(std::get<Translation>(statement));
        known.ofTranslation = m_prepared.of(known.translation.sql);
    }
    return known;
}

void StatementReader::takeArguments(const Known& known) {
    m_read.arguments.clear();
    const auto& values = m_shape.values();
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (known.procedure != nullptr)
            m_read.arguments.push_back(argumentFor(known.procedure->parameters[i], values[i]));
        else if (known.translation.values[i].kind != Placeholder::Kind::Written)
            m_read.arguments.push_back(argumentFor(known.translation.values[i], values[i]));
    }
}

} // namespace opd::adapters::sqlite
