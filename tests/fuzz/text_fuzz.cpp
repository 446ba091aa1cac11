// Whatever a list's line or a stored epoch holds, it is read without failing, and what is written
// from it reads back.
//
// An input's first byte selects the locale and the decimals; the rest is the text.

#include "epochs/EpochValue.h"
#include "notation/LookAlikes.h"
#include "notation/RADecFormat.h"
#include "platform/Json.h"
#include "workspace/DelimitedText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>

using namespace skyvert;

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

void splitLine(std::string_view line) {
    LineSplitter splitter;
    for (const Dialect dialect : {Dialect::None, Dialect::Tab, Dialect::Comma, Dialect::Space}) {
        const auto fields = splitter.split(line, dialect);
        std::string written;
        appendRecord(fields, dialect, written);
        std::string quoted;
        JoinCommaSeparated(fields, true, quoted);
        const std::vector<std::string> expected(fields.begin(), fields.end());
        const auto again = splitter.split(quoted, Dialect::Comma);
        require(std::equal(expected.begin(), expected.end(), again.begin(), again.end()));
    }
}

void convert(std::string_view text, RADecFormat& format) {
    std::string_view error;
    std::array<char, RADecFormat::kMaxText> buffer{};
    for (const std::string& notation : RADecFormat::SupportedRAFormats()) {
        format.setRaFormat(notation);
        const double hours = format.ImportRA(text, error);
        require(!error.empty() || (hours >= 0 && hours < 24));
        const auto length = format.writeRA(hours, buffer.data()) - buffer.data();
        format.ImportRA({buffer.data(), static_cast<std::size_t>(length)}, error);
    }
    for (const std::string& notation : RADecFormat::SupportedDecFormats()) {
        format.setDecFormat(notation);
        const double degrees = format.ImportDec(text, error);
        require(!error.empty() || std::abs(degrees) <= 90);
        const auto length = format.writeDec(degrees, buffer.data()) - buffer.data();
        format.ImportDec({buffer.data(), static_cast<std::size_t>(length)}, error);
    }
}

void restoreFormat(std::string_view text, const Locale& locale) {
    const RADecFormat format(text, locale);
    require(RADecFormat(format.AsString(), locale).AsString() == format.AsString());
    format.ExportRA(23.999999);
    format.ExportDec(-0.000001);
}

struct StoppedClock : Clock {
    Date now() const override { return {2026, 11, 16, 21, 5, 9}; }
};

struct Selector : EpochView {
    int epochPopupListIndex() const override { return row; }

    void setEpochPopupListIndex(int index) override { row = index; }

    std::string epochPopupValue() const override {
        return row < 0 ? "" : epochRows().at(static_cast<std::size_t>(row));
    }

    void setEpochPopupValue(std::string_view text) override {
        const auto rows = epochRows();
        row = static_cast<int>(std::find(rows.begin(), rows.end(), text) - rows.begin());
    }

    Date epochDateDateValue() const override { return shown; }

    void setEpochDateDateValue(const Date& date) override { shown = date; }

    void setEpochDateVisible(bool /*visible*/) override {}

    void setDateLabelVisible(bool /*visible*/) override {}

    void setEpochPopupHelpTag(const std::string& /*text*/) override {}

    int row = 0;
    Date shown{2000, 1, 1};
};

void restoreEpoch(std::string_view text, const Locale& locale) {
    const StoppedClock clock;
    Selector view;
    EpochValue epoch(view, clock, locale);
    try {
        JsonObject::parse(text);
        epoch.setSerialised(text);
    } catch (const std::invalid_argument&) {
        return;
    }
    const std::string stored = epoch.serialised();
    epoch.setSerialised(stored);
    require(epoch.serialised() == stored);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::array<Locale, 4> kLocales{
        {{".", ","}, {",", "."}, {"\u066B", "\u066C"}, {",", ""}}};
    if (size == 0)
        return 0;
    const Locale& locale = kLocales[data[0] % kLocales.size()];
    const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
    std::string storage;
    const std::string_view folded = foldLookAlikes(text, storage);
    RADecFormat format(locale);
    format.setRADecimals(data[0] / 16 - 1);
    format.setDecDecimals(data[0] / 16 - 1);
    for (const bool localised : {false, true}) {
        format.setLocalised(localised);
        convert(folded, format);
    }
    splitLine(text);
    restoreFormat(text, locale);
    restoreEpoch(text, locale);
    return 0;
}
