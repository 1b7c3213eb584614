#include "screen/pages/history_page.hpp"

#include "base/text/columns.hpp"
#include "base/text/count.hpp"
#include "base/text/quotes.hpp"
#include "screen/canvas/characters.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/block_page.hpp"
#include "work/naming.hpp"

#include <algorithm>
#include <iterator>

namespace quillmere::screen {
namespace {

constexpr std::size_t columnsOfChoice = 2;
constexpr std::size_t columnsBetween = 2;
constexpr const char* searchLabel = "Search  ";

std::size_t rowsAboveList(Size window)
{
    const bool isCompact = layout(familyFor(window)) == QuillmereWidgetLayout::compact;
    return 1 + (isCompact ? 0 : rowsOf(QuillmereDesign::Spacing::regular));
}

std::size_t rowsOfList(Size window, const Area& area)
{
    return area.rows - std::min(area.rows, rowsAboveList(window));
}

/// The first row in view: the chosen one is about in the middle.
std::size_t firstRowInView(std::size_t chosen, std::size_t rows, std::size_t shown)
{
    return std::min(chosen - std::min(chosen, shown / 2), rows - std::min(rows, shown));
}

}  // namespace

HistoryPage::HistoryPage(work::Presenter& presenter) : presenter_(presenter) { list(); }

bool HistoryPage::follow()
{
    list();
    return true;
}

void HistoryPage::list()
{
    const std::optional<Identifier> before =
        rows().empty() ? std::nullopt : std::optional(rows()[chosen_].block);
    list_.update(presenter_.situation(), searched_.text());
    const std::optional<std::size_t> again = before ? list_.indexOf(*before) : std::nullopt;
    chosen_ = again.value_or(std::min(chosen_, rows().empty() ? 0 : rows().size() - 1));
}

void HistoryPage::endSearch()
{
    isSearching_ = false;
    searched_ = TextEditor();
    list();
}

bool HistoryPage::goesBack()
{
    if (searched_.text().empty()) {
        return false;
    }
    endSearch();
    return true;
}

PageStep HistoryPage::take(const Key& key, const Room& room)
{
    if (isSearching_) {
        takeInSearch(key, room);
    } else if (types(key, "/")) {
        isSearching_ = true;
    } else if (rows().empty()) {
        return {};
    } else if (key.kind == Key::Kind::enter) {
        return {.opened = std::make_unique<BlockPage>(presenter_, rows()[chosen_].block)};
    } else if (types(key, "d")) {
        presenter_.requestDeletion(rows()[chosen_].block);
    } else {
        choose(key, room);
    }
    return {};
}

void HistoryPage::takeInSearch(const Key& key, const Room& room)
{
    if (key.kind == Key::Kind::enter) {
        isSearching_ = false;
    } else if (key.kind == Key::Kind::escape) {
        endSearch();
    } else if (key.kind == Key::Kind::up || key.kind == Key::Kind::down) {
        choose(key, room);
    } else if (key.kind == Key::Kind::paste) {
        searched_.insert(key.text.substr(0, key.text.find('\n')));
        list();
    } else if (searched_.take(key, room.area.columns) == Effect::changed) {
        list();
    }
}

void HistoryPage::choose(const Key& key, const Room& room)
{
    const std::size_t last = rows().empty() ? 0 : rows().size() - 1;
    const std::size_t page = std::max<std::size_t>(rowsOfList(room.window, room.area), 2) - 1;
    switch (key.kind) {
        case Key::Kind::up: chosen_ -= std::min<std::size_t>(chosen_, 1); break;
        case Key::Kind::down: chosen_ = std::min(chosen_ + 1, last); break;
        case Key::Kind::pageUp: chosen_ -= std::min(chosen_, page); break;
        case Key::Kind::pageDown: chosen_ = std::min(chosen_ + page, last); break;
        case Key::Kind::home: chosen_ = 0; break;
        case Key::Kind::end: chosen_ = last; break;
        default: break;
    }
}

std::vector<KeyHint> HistoryPage::keys(bool scrolls) const
{
    if (isSearching_) {
        return {{"Enter", "keep the word"}, {"↑↓", "choose"}, {"Esc", "all blocks"}};
    }
    std::vector<KeyHint> hints;
    if (!rows().empty()) {
        hints = {{"↑↓", "choose"}, {"Enter", "open"}};
        if (scrolls) {
            hints.push_back({"PgDn", "scroll"});
        }
        if (work::finishedBlockWith(rows()[chosen_].block, presenter_.state())) {
            hints.push_back({"d", "delete"});
        }
    }
    hints.push_back({"/", "search"});
    hints.push_back({"Esc", searched_.text().empty() ? "back" : "all blocks"});
    hints.push_back({"q", "quit"});
    return hints;
}

bool HistoryPage::scrolls(const Room& room) const
{
    return rows().size() > rowsOfList(room.window, room.area);
}

void HistoryPage::drawHeading(Canvas& canvas, const Area& area, Look heading) const
{
    const std::string& word = searched_.text();
    if (!isSearching_) {
        const std::size_t taken = canvas.write({area.row, area.column}, "History", heading) + columnsBetween;
        const std::string count = base::countText(std::ssize(rows()), "block");
        canvas.write({area.row, area.column + taken},
                     word.empty() ? count : count + " with " + base::inQuotes(word), {.dim = true},
                     area.columns - taken);
        return;
    }
    const std::size_t label = canvas.write({area.row, area.column}, searchLabel, heading);
    const std::size_t most = area.columns - label - 1;
    canvas.write({area.row, area.column + label}, word, {}, most);
    const std::size_t beforeCursor = shownColumns(std::string_view(word).substr(0, searched_.cursor()));
    canvas.setCursor({area.row, area.column + label + std::min(beforeCursor, most)});
}

std::string HistoryPage::nothingText() const
{
    return searched_.text().empty() ? "No block is finished yet."
                                    : "No block has " + base::inQuotes(searched_.text()) + " in its words.";
}

void HistoryPage::draw(Canvas& canvas, const Area& area, Look heading) const
{
    drawHeading(canvas, area, heading);
    const std::size_t above = std::min(area.rows, rowsAboveList(canvas.size()));
    const Area below{area.row + above, area.column, area.rows - above, area.columns};
    Flow flow(canvas, {below.row, below.column, below.rows, below.columns - 1});
    if (rows().empty()) {
        flow.paragraph(nothingText());
        return;
    }
    const std::size_t first = firstRowInView(chosen_, rows().size(), below.rows);
    const std::size_t end = std::min(first + below.rows, rows().size());
    std::size_t names = 0;
    std::size_t signs = 0;
    for (std::size_t index = first; index < end; ++index) {
        names = std::max(names, rows()[index].name.size());
        signs = std::max(signs, base::columnsOf(rows()[index].signs));
    }
    constexpr std::size_t dayColumns = 10;
    const std::size_t nameColumn = columnsOfChoice + dayColumns + columnsBetween;
    const std::size_t signColumn = nameColumn + names + columnsBetween;
    for (std::size_t index = first; index < end; ++index) {
        const HistoryRow& row = rows()[index];
        const bool isChosen = index == chosen_;
        const std::size_t line = flow.rest().row;
        canvas.write({line, area.column}, isChosen ? "▸" : " ", heading);
        canvas.write({line, area.column + columnsOfChoice}, row.day, {.bold = isChosen});
        canvas.write({line, area.column + nameColumn}, row.name, {.dim = true});
        canvas.write({line, area.column + signColumn}, row.signs);
        flow.line(row.title, {.bold = isChosen}, signColumn + signs + columnsBetween);
    }
    drawMoreArrows(canvas, below, first > 0, end < rows().size());
}

}  // namespace quillmere::screen
