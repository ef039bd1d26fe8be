// Cuts a text without structure into entries at its date lines, and tells how it was done, so that
// the user can overrule it. DateLine says what a date line is; DatedTextSource makes texts of
// files. All pure; any thread; linear in the text's length.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>

#include "DiaryKit/Import/DatedTextSummary.h"
#include "DiaryKit/Import/ImportBatch.h"

namespace diary::DatedTextSplit {

// What becomes of a short text behind the date on its line.
enum class Rest {
    // Words of weather are the entry's weather, the others its title.
    weatherOrTitle,
    // It is the first line of the body.
    body,
    drop
};

// A rest of more user-perceived characters is writing, not a label, and always goes to the body.
inline constexpr int kLongestLabel = 30;

struct Options {
    // Absent: found out from the text.
    std::optional<Placement> placement = {};
    Rest rest = Rest::weatherOrTitle;
    // Whether 3/4/2021 is 3 April. Absent: found out from the other dates; 4 March if none tells.
    std::optional<bool> dayFirst = {};
    // The year of dates with four question marks. Absent: their entries are dropped and counted.
    std::optional<int> assumedYear = {};

    bool operator==(const Options&) const = default;
};

// The entries of a text with line ends of any kind. A date with nothing behind or below it is no
// entry. Text ahead of the first entry isn't imported and counts as one undated entry.
// Beside the entries it holds the text once; a text with CR that the caller keeps is copied.
//   "3 March 2021 rain\nStayed in." -> 3 March 2021, weather "rain", body "Stayed in."
[[nodiscard]] ImportBatch split(QString text, const QString& name, const Options& options);

// Whether a line's two first numbers tell the order of day and month: true for day first, false for
// month first, nothing if they don't tell.  "13/4/2021" -> true, "4/13/2021" -> false
// It knows nothing of the forms of dates, so "2021/03/04" tells day first.
[[nodiscard]] std::optional<bool> swappedOrderEvidence(QStringView line);

struct WeatherAndTitle {
    std::optional<QString> weather = {};
    std::optional<QString> title = {};

    bool operator==(const WeatherAndTitle&) const = default;
};

// The words of weather and all others, each as they are written, in their order.
//   "晴 20℃ 去爬山" -> weather "晴 20℃", title "去爬山"
[[nodiscard]] WeatherAndTitle splitWeather(QStringView text);

}  // namespace diary::DatedTextSplit
