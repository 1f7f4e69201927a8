#include "adapters/sqlite/row_order.h"

#include "base/text/plain.h"
#include "base/text/text.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace opd::adapters::sqlite {

namespace {

// Within a key null stands before every text, and the end of a text before every longer one.
constexpr char nothing = '\0';
constexpr char something = '\1';
constexpr char textEnd = '\0';

void appendText(std::string& keys, std::string_view utf8) {
    utf8 = text::withoutEndBlanks(utf8);
    const std::size_t begin = keys.size();
    keys += utf8;
    bool isPlain = true;
    for (std::size_t at = begin; at < keys.size(); ++at) {
        isPlain = isPlain && text::isPlain(keys[at]);
        keys[at] = text::plainUpper(keys[at]);
    }
    if (!isPlain) // its letters need to be read as characters
        keys.replace(begin, std::string::npos, text::upper(utf8));
}

void appendDigits(std::string& keys, int number, int count) {
    for (int power = count == 4 ? 1000 : 10; power > 0; power /= 10)
        keys += static_cast<char>('0' + number / power % 10);
}

/// As `isoDateText`, thousands of times.
void appendMoment(std::string& keys, const DateTime& moment) {
    appendDigits(keys, moment.year, 4);
    appendDigits(keys += '-', moment.month, 2);
    appendDigits(keys += '-', moment.day, 2);
    if (moment == moment.date())
        return;
    appendDigits(keys += ' ', moment.hour, 2);
    appendDigits(keys += ':', moment.minute, 2);
    appendDigits(keys += ':', moment.second, 2);
}

void appendKey(std::string& keys, const ado::Value& value) {
    if (value.isNull()) {
        keys += nothing;
        return;
    }
    keys += something;
    std::string room;
    if (const auto* const moment = value.get<DateTime>())
        appendMoment(keys, *moment);
    else
        appendText(keys, value.asView(room));
    keys += textEnd;
}

/// A row and its key, whose first bytes lie at hand as a number that compares as they do.
struct Entry {
    std::uint64_t beginning;
    std::uint32_t begin;
    std::uint32_t size;
    std::uint32_t row;
};

std::uint64_t beginningOf(std::string_view key) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i)
        number = number << 8U | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
    return number;
}

std::size_t sharedLength(std::string_view left, std::string_view right) {
    return static_cast<std::size_t>(std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first -
                                    left.begin());
}

/// The rows with their keys, without what all keys begin with.
std::vector<Entry> entriesOf(const ado::ResultSet& answer, const std::vector<std::size_t>& columns, std::string& keys) {
    std::vector<Entry> entries(answer.rows.size());
    for (std::size_t row = 0; row < entries.size(); ++row) {
        const std::size_t begin = keys.size();
        for (const std::size_t column : columns)
            appendKey(keys, answer.rows[row].at(column));
        entries[row] = {0, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(keys.size() - begin),
                        static_cast<std::uint32_t>(row)};
    }
    const std::string_view all = keys;
    std::size_t shared = entries.front().size;
    const std::string_view first = all.substr(entries.front().begin, shared);
    for (const Entry& entry : entries)
        shared = std::min(shared, sharedLength(first.substr(0, shared), all.substr(entry.begin, entry.size)));
    for (Entry& entry : entries) {
        entry.begin += static_cast<std::uint32_t>(shared);
        entry.size -= static_cast<std::uint32_t>(shared);
        entry.beginning = beginningOf(all.substr(entry.begin, entry.size));
    }
    return entries;
}

} // namespace

void orderRows(ado::ResultSet& answer, const std::vector<std::size_t>& columns) {
    if (columns.empty() || answer.rows.size() < 2)
        return;
    std::string keys;
    std::vector<Entry> entries = entriesOf(answer, columns, keys);
    const std::string_view all = keys;
    std::sort(entries.begin(), entries.end(), [all](const Entry& left, const Entry& right) {
        if (left.beginning != right.beginning)
            return left.beginning < right.beginning;
        const int difference = all.substr(left.begin, left.size).compare(all.substr(right.begin, right.size));
        return difference != 0 ? difference < 0 : left.row < right.row;
    });
    std::vector<std::vector<ado::Value>> ordered;
    ordered.reserve(answer.rows.size());
    for (const Entry& entry : entries)
        ordered.push_back(std::move(answer.rows[entry.row]));
    answer.rows = std::move(ordered);
}

} // namespace opd::adapters::sqlite
