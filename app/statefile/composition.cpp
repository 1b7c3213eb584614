#include "statefile/composition.hpp"

#include "statefile/form.hpp"

#include <quillmere/store/state_store.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace quillmere::statefile {
namespace {

class Composer {
public:
    explicit Composer(std::string_view state) : rest_(state) {}

    Composition compose(const std::vector<Run>& questions, Run blocks)
    {
        copy(questionsStart.view().size());
        const std::vector<std::string_view> open = takeElements();
        for (std::size_t index = 0; index < open.size() || index < questions.size(); ++index) {
            if (index < questions.size()) {
                addElements(questions[index]);
            }
            if (index < open.size()) {
                addElement(open[index]);
            }
        }
        endList();
        copy(historyStart.view().size());
        for (const std::string_view block : takeElements()) {
            addElement(block);
        }
        addElements(blocks);
        endList();
        copy(rest_.size());
        return std::move(composition_);
    }

private:
    void copy(std::size_t count)
    {
        text() += rest_.substr(0, count);
        rest_.remove_prefix(count);
    }

    /// The elements of a list up to its end; its opening bracket was taken before.
    std::vector<std::string_view> takeElements()
    {
        std::vector<std::string_view> elements;
        while (rest_.starts_with(elementStart.view()) || rest_.starts_with(",")) {
            const std::size_t begin = rest_.front() == ',' ? 1 : 0;
            const std::size_t end = rest_.find(elementEnd.view()) + elementEnd.view().size();
            elements.push_back(rest_.substr(begin, end - begin));
            rest_.remove_prefix(end);
        }
        rest_.remove_prefix(elements.empty() ? noElements.view().size() : listEnd.view().size());
        return elements;
    }

    void addElement(std::string_view element)
    {
        text().append(isListEmpty_ ? "" : ",").append(element);
        isListEmpty_ = false;
    }

    void addElements(Run run)
    {
        if (!run.isEmpty()) {
            addElement("");
            composition_.push_back(run);
        }
    }

    void endList()
    {
        text() += isListEmpty_ ? noElements.view() : listEnd.view();
        isListEmpty_ = true;
    }

    /// The text at the end of the composition.
    std::string& text()
    {
        if (composition_.empty() || std::holds_alternative<Run>(composition_.back())) {
            composition_.emplace_back(std::string());
        }
        return std::get<std::string>(composition_.back());
    }

    std::string_view rest_;  ///< of the state's own text
    Composition composition_;
    bool isListEmpty_ = true;
};

[[noreturn]] void throwError(const char* call)
{
    throw std::system_error(errno, std::generic_category(), call);
}

/// A file that grows.
class Output {
public:
    explicit Output(const std::filesystem::path& file) : descriptor_(opened(file)) {}

    void add(std::string_view text)
    {
        while (!text.empty()) {
            const ssize_t count = ::write(descriptor_.get(), text.data(), text.size());
            if (count == 0) {
                errno = EIO;
            }
            if (count == 0 || (count == -1 && errno != EINTR)) {
                throwError("write");
            }
            const ssize_t added = std::max<ssize_t>(count, 0);
            text.remove_prefix(static_cast<std::size_t>(added));
            size_ += added;
        }
    }

    void add(const OpenFile& older, Run run)
    {
        while (!run.isEmpty()) {
            Run piece{.begin = run.begin, .end = std::min(run.end, run.begin + pieceSize)};
            run.begin = piece.end;
            while (!piece.isEmpty() && copySome(older, piece)) {
            }
            if (!piece.isEmpty()) {
                readAndAdd(older, piece);
            }
            beginToStore();
        }
    }

    void finish()
    {
        // After EINTR it is closed too.
        if (descriptor_.close() == -1 && errno != EINTR) {
            throwError("close");
        }
    }

private:
    static constexpr std::size_t pieceSize = 1 << 20;

    static int opened(const std::filesystem::path& file)
    {
        int descriptor = -1;
        do {
            descriptor = ::open(file.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
        } while (descriptor == -1 && errno == EINTR);
        if (descriptor == -1) {
            throwError("open");
        }
        return descriptor;
    }

    void readAndAdd(const OpenFile& older, Run piece)
    {
        std::string text(piece.end - piece.begin, '\0');
        while (!text.empty()) {
            text.resize(older.read(text.data(), text.size(), piece.begin));
            requireMore(text.size());
            add(text);
            piece.begin += text.size();
            text.resize(piece.end - piece.begin);
        }
    }

    /// The disk writes whole pages while the rest is copied. An error of it is told by the fsync(2) to come.
    void beginToStore()
    {
        constexpr off64_t page = 1 << 12;
        const off64_t end = size_ - size_ % page;
        ::sync_file_range(descriptor_.get(), stored_, end - stored_, SYNC_FILE_RANGE_WRITE);
        stored_ = end;
    }

    /// False where the system cannot copy between these files, or not here.
    bool copySome(const OpenFile& older, Run& run)
    {
        auto from = static_cast<loff_t>(run.begin);
        const ssize_t count =
            ::copy_file_range(older.descriptor(), &from, descriptor_.get(), nullptr, run.end - run.begin, 0);
        if (count == -1) {
            if (errno == EXDEV || errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP ||
                errno == EPERM) {
                return false;
            }
            if (errno != EINTR) {
                throwError("copy_file_range");
            }
            return true;
        }
        requireMore(static_cast<std::size_t>(count));
        run.begin = static_cast<std::size_t>(from);
        size_ += count;
        return true;
    }

    /// The older file has become shorter.
    static void requireMore(std::size_t count)
    {
        if (count == 0) {
            errno = EBUSY;
            throwError("read");
        }
    }

    base::Descriptor descriptor_;
    off64_t size_ = 0;
    off64_t stored_ = 0;  ///< how much the disk was told to write
};

}  // namespace

Composition compose(const QuillmereState& state, const std::vector<Run>& questions, Run blocks)
{
    const Bytes text = StateStore::encoder().encode(state);
    return Composer(text.view()).compose(questions, blocks);
}

void write(const Composition& composition, const OpenFile& older, const std::filesystem::path& file)
{
    Output output(file);
    for (const auto& piece : composition) {
        if (const Run* const run = std::get_if<Run>(&piece)) {
            output.add(older, *run);
        } else {
            output.add(std::get<std::string>(piece));
        }
    }
    output.finish();
}

}  // namespace quillmere::statefile
