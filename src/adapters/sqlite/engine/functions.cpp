#include "adapters/sqlite/engine/functions.h"

#include "base/clock/date_text.h"
#include "base/os/identity.h"
#include "base/text/folding.h"
#include "base/text/plain.h"
#include "base/text/text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace opd::adapters::sqlite {

namespace {

/// Good as long as the value is.
std::string_view viewOf(sqlite3_value* value) {
    const unsigned char* const text = sqlite3_value_text(value);
    return text == nullptr ? std::string_view{}
                           : std::string_view(reinterpret_cast<const char*>(text),
                                              static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

std::string textOf(sqlite3_value* value) {
    return std::string{viewOf(value)};
}

void answer(sqlite3_context* context, const std::string& text) {
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

/// As the hospital's server compares. Most texts part before a character that is not plain.
int compare(std::string_view left, std::string_view right) {
    left = text::withoutEndBlanks(left);
    right = text::withoutEndBlanks(right);
    for (auto one = left.begin(), other = right.begin();; ++one, ++other) {
        std::tie(one, other) = std::mismatch(one, left.end(), other, right.end());
        if (one == left.end() || other == right.end())
            break;
        if (!text::isPlain(*one) || !text::isPlain(*other))
            return text::upper(left).compare(text::upper(right));
        if (const int difference = text::plainUpper(*one) - text::plainUpper(*other); difference != 0)
            return difference;
    }
    return left.size() == right.size() ? 0 : left.size() < right.size() ? -1 : 1;
}

int compareText(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return compare({static_cast<const char*>(left), static_cast<std::size_t>(leftSize)},
                   {static_cast<const char*>(right), static_cast<std::size_t>(rightSize)});
}

/// The next character of a number that is compared; 0 behind the last one.
char nextInNumber(std::string_view number, std::size_t& at) {
    while (at < number.size() && (number[at] == ' ' || number[at] == '-'))
        ++at;
    return at < number.size() ? text::plainUpper(number[at++]) : '\0';
}

/// Compares numbers that are written with or without blanks and hyphens.
int compareNumbers(void*, int leftSize, const void* left, int rightSize, const void* right) {
    const std::string_view one{static_cast<const char*>(left), static_cast<std::size_t>(leftSize)};
    const std::string_view other{static_cast<const char*>(right), static_cast<std::size_t>(rightSize)};
    std::size_t atOne = 0, atOther = 0;
    while (true) {
        const char here = nextInNumber(one, atOne);
        const char there = nextInNumber(other, atOther);
        if (here != there || here == '\0')
            return static_cast<unsigned char>(here) - static_cast<unsigned char>(there);
    }
}

/// The folded form of an argument that is the same for every row: made once.
const std::string& foldedOnce(sqlite3_context* context, sqlite3_value** arguments, int number) {
    if (const void* known = sqlite3_get_auxdata(context, number))
        return *static_cast<const std::string*>(known);
    auto* const made = new std::string(text::folded(textOf(arguments[number])));
    static thread_local std::string kept; // the engine may throw away what it is given at once
    kept = *made;
    sqlite3_set_auxdata(context, number, made, [](void* old) { delete static_cast<std::string*>(old); });
    return kept;
}

/// True when one of the texts stands so to the last argument, which is the same for every row.
template <bool (*compares)(std::string_view, std::string_view)>
void compareFolded(sqlite3_context* context, int count, sqlite3_value** arguments) {
    const std::string& wanted = foldedOnce(context, arguments, count - 1);
    bool isKnown = false;
    for (int i = 0; i < count - 1; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL)
            continue;
        isKnown = true;
        if (compares(viewOf(arguments[i]), wanted)) {
            sqlite3_result_int(context, 1);
            return;
        }
    }
    if (isKnown)
        sqlite3_result_int(context, 0);
}

void searchNameFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    answer(context, text::searchedName(textOf(arguments[0])));
}

/// The smallest text that is greater than every text with this prefix.
void prefixEnd(sqlite3_context* context, int, sqlite3_value** arguments) {
    answer(context, textOf(arguments[0]) + "\xF4\x8F\xBF\xBF");
}

void beforeComma(sqlite3_context* context, int, sqlite3_value** arguments) {
    const std::string text = textOf(arguments[0]);
    answer(context, text::trimmed(text.substr(0, text.find(','))));
}

void afterComma(sqlite3_context* context, int, sqlite3_value** arguments) {
    const std::string text = textOf(arguments[0]);
    const std::size_t comma = text.find(',');
    answer(context, comma == std::string::npos ? std::string{} : text::trimmed(text.substr(comma + 1)));
}

void firstWord(sqlite3_context* context, int, sqlite3_value** arguments) {
    const std::string text = textOf(arguments[0]);
    const std::size_t begin = text.find_first_not_of(" ,");
    answer(context,
           begin == std::string::npos ? std::string{} : text.substr(begin, text.find_first_of(" ,", begin) - begin));
}

/// True when both given names begin with what is typed behind a comma: words of the first name, then perhaps some of
/// the middle name. "MARIA S" fits "MARIA LUZ" with "SANTOS".
bool fitGivenNames(const std::string& first, std::string_view middle, std::string_view typed) {
    const std::string firstName = text::searchedName(first);
    for (std::size_t end = 0; end < typed.size();) {
        end = std::min(typed.find_first_of(" ,", typed.find_first_not_of(" ,", end)), typed.size());
        if (!firstName.starts_with(text::searchedName(typed.substr(0, end))))
            return false; // no longer beginning fits either
        if (text::searchedName(middle).starts_with(text::searchedName(typed.substr(end))))
            return true;
    }
    return false;
}

void fitGivenNamesFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    sqlite3_result_int(context, fitGivenNames(textOf(arguments[0]), textOf(arguments[1]), textOf(arguments[2])));
}

/// Whole years from a birth date to a day, as the desk counts them.
void ageOn(sqlite3_context* context, int, sqlite3_value** arguments) {
    const std::optional<DateTime> born = parseDate(viewOf(arguments[0]));
    const std::optional<DateTime> today = parseDate(viewOf(arguments[1]));
    if (born && today)
        sqlite3_result_int(context, yearsBetween(*born, *today));
}

/// How many days it takes at the least to complete an age.
long daysOf(double years) {
    return static_cast<long>(std::ceil(years * daysOfYear));
}

/// The day on which somebody was born who completes the age on a day, at the latest.
void bornUntil(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (const std::optional<DateTime> today = parseDate(viewOf(arguments[1])))
        answer(context, isoDateText(addDays(today->date(), -daysOf(sqlite3_value_double(arguments[0])))));
}

/// The same at the earliest: a day later the next year is complete.
void bornFrom(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (const std::optional<DateTime> today = parseDate(viewOf(arguments[1])))
        answer(context, isoDateText(addDays(today->date(), 1 - daysOf(sqlite3_value_double(arguments[0]) + 1))));
}

void addressText(sqlite3_context* context, int, sqlite3_value** arguments) {
    const std::string_view street = text::withoutBlanks(viewOf(arguments[0]));
    const std::string_view barangay = text::withoutBlanks(viewOf(arguments[1]));
    static thread_local std::string address; // one room for thousands of rows
    address.assign(street).append(street.empty() || barangay.empty() ? "" : ", ").append(barangay);
    answer(context, address);
}

void now(sqlite3_context* context, int, sqlite3_value**) {
    answer(context, isoDateText(static_cast<const Clock*>(sqlite3_user_data(context))->now()));
}

void loginName(sqlite3_context* context, int, sqlite3_value**) {
    static const std::string name = os::loginName();
    answer(context, name);
}

void hostName(sqlite3_context* context, int, sqlite3_value**) {
    static const std::string name = os::hostName();
    answer(context, name);
}

void sessionNumber(sqlite3_context* context, int, sqlite3_value**) {
    sqlite3_result_int64(context, os::processNumber());
}

} // namespace

void registerFunctions(sqlite3* handle, const Clock& clock) {
    sqlite3_create_collation(handle, "OPD", SQLITE_UTF8, nullptr, compareText);
    sqlite3_create_collation(handle, "OPD_NUMBER", SQLITE_UTF8, nullptr, compareNumbers);
    struct Function {
        const char* name;
        int arguments;
        void (*function)(sqlite3_context*, int, sqlite3_value**);
        bool deterministic;
    };
    const Function functions[] = {
        {"begins_with", 2, compareFolded<text::beginsFolded>, true},
        {"contains", -1, compareFolded<text::holdsFolded>, true}, // any number of texts, and what one is to hold
        {"fit_given_names", 3, fitGivenNamesFunction, true},
        {"search_name", 1, searchNameFunction, true},
        {"prefix_end", 1, prefixEnd, true},
        {"before_comma", 1, beforeComma, true},
        {"after_comma", 1, afterComma, true},
        {"first_word", 1, firstWord, true},
        {"age_on", 2, ageOn, true},
        {"born_from", 2, bornFrom, true},
        {"born_until", 2, bornUntil, true},
        {"address_text", 2, addressText, true},
        {"now", 0, now, false},
        {"login_name", 0, loginName, false},
        {"host_name", 0, hostName, false},
        {"session_id", 0, sessionNumber, false},
    };
    for (const Function& function : functions)
        sqlite3_create_function_v2(handle, function.name, function.arguments,
                                   SQLITE_UTF8 | (function.deterministic ? SQLITE_DETERMINISTIC : 0),
                                   const_cast<Clock*>(&clock), function.function, nullptr, nullptr, nullptr);
}

} // namespace opd::adapters::sqlite
