// The library that a program opens when the first database server is asked for.
#include "adapters/odbc/diagnostics.h"
#include "adapters/odbc/provider.h"
#include "ado/error.h"
#include "ado/provider_module.h"
#include "base/text/text.h"

#include <charconv>

namespace opd::adapters::odbc {

namespace {

std::chrono::seconds secondsOf(const std::string& text, const char* key, std::chrono::seconds otherwise) {
    if (text::isBlank(text))
        return otherwise;
    int seconds = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (error != std::errc{} || end != text.data() + text.size() || seconds < 1 || seconds > 3600)
        throw ado::Error("\"" + text + "\" in the setting " + key + " is no number of seconds from 1 to 3600.",
                         errorSource, 0, "HY024");
    return std::chrono::seconds{seconds};
}

Options optionsOf(const ado::SettingOf& settingOf) {
    namespace key = ado::server_setting;
    Options options;
    if (std::string driver = settingOf(key::driver); !driver.empty())
        options.driver = std::move(driver);
    const std::string encrypt = settingOf(key::encrypt);
    options.encryptionRequired = text::equalsIgnoringCase(encrypt, key::encryptRequired);
    if (!encrypt.empty() && !options.encryptionRequired)
        throw ado::Error("The setting " + std::string{key::encrypt} + " is \"" + encrypt + "\"; it can be \"" +
                             key::encryptRequired + "\" or empty.",
                         errorSource, 0, "HY024");
    options.loginTimeout = secondsOf(settingOf(key::loginTimeout), key::loginTimeout, options.loginTimeout);
    options.statementTimeout =
        secondsOf(settingOf(key::statementTimeout), key::statementTimeout, options.statementTimeout);
    return options;
}

} // namespace

} // namespace opd::adapters::odbc

opd::ado::Provider* opdCreateProvider(const opd::ado::SettingOf& settingOf) {
    using namespace opd::adapters::odbc;
    static const std::shared_ptr<opd::ado::Provider> provider =
        makeOdbcProvider([settingOf] { return optionsOf(settingOf); });
    return provider.get();
}
