// The look back on finished sessions, as `quillmere report` prints it.
#pragma once

#include "figures/local_day.hpp"
#include "screen/pages/text_page.hpp"
#include "work/presenter.hpp"

#include <cstddef>
#include <optional>
#include <string>

namespace quillmere::screen {

/// Of this week, this month, or all time.
class LookBackPage : public TextPage {
public:
    static constexpr base::Reach reach = base::Reach::years;

    explicit LookBackPage(const work::Presenter& presenter) : presenter_(presenter) {}

private:
    PageStep take(const Key& key, const Room& room) override;
    Canvas text(std::size_t columns, Charset charset, Look heading) const override;
    std::vector<KeyHint> ownKeys() const override;

    /// The report is the same while these are.
    struct Printed {
        std::string span;
        figures::Day today;
        Instant updatedAt;  ///< of the state
        std::size_t columns;
        Charset charset;

        friend bool operator==(const Printed&, const Printed&) = default;
    };

    std::string report(const Printed& printed) const;

    const work::Presenter& presenter_;
    std::string span_;  ///< as figures::spanFromText reads it; empty: all time
    // The figures of years take a while, and a picture is drawn every second.
    mutable std::optional<Printed> printed_;
    mutable std::string report_;
};

}  // namespace quillmere::screen
