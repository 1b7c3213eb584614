#include "proofs/power_cut/file_system_model.hpp"

#include <utility>

namespace quillmere::test {
namespace {

bool isTemporary(const std::string& name) { return name.starts_with(".") && name.ends_with(".tmp"); }

/// ".state.json.UUID.tmp" without the UUID.
std::string withoutIdentifier(const std::string& name)
{
    constexpr std::size_t tail = std::string_view(".9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10.tmp").size();
    return name.substr(0, name.size() - tail) + ".tmp";
}

void overwrite(std::string& content, std::uint64_t offset, const std::string& data)
{
    if (content.size() < offset + data.size()) {
        content.resize(offset + data.size());  // fills a hole with zeros
    }
    content.replace(offset, data.size(), data);
}

}  // namespace

FileSystemModel::FileSystemModel(std::filesystem::path directory, const DirectoryImage& lasting)
    : directory_(std::move(directory))
{
    for (const auto& [name, content] : lasting) {
        lasting_[name] = files_.size();
        files_.push_back({.lasting = {{.offset = 0, .data = content}}, .unsynced = {}});
    }
    current_ = lasting_;
}

bool FileSystemModel::apply(const CallRecord& record)
{
    const std::filesystem::path path = record.path;
    const std::string name = path.filename().string();
    const bool isDirectory = path == directory_;
    if (record.error != 0 || (!isDirectory && path.parent_path() != directory_)) {
        return false;
    }
    const auto enter = [&](EntryChange entryChange) {
        change(current_, entryChange);
        unsynced_.push_back(std::move(entryChange));
    };
    if (record.call == SystemCall::open && record.creates) {
        files_.emplace_back();
        enter({.removed = {}, .set = name, .file = files_.size() - 1});
    } else if (record.call == SystemCall::write) {
        files_[current_.at(name)].unsynced.push_back({.offset = record.offset, .data = record.data});
    } else if (record.call == SystemCall::rename) {
        const std::string destination = std::filesystem::path(record.destination).filename().string();
        enter({.removed = name, .set = destination, .file = current_.at(name)});
    } else if (record.call == SystemCall::unlink) {
        enter({.removed = name, .set = {}, .file = 0});
    } else if (record.call == SystemCall::fsync && isDirectory) {
        lasting_ = current_;
        unsynced_.clear();
    } else if (record.call == SystemCall::fsync) {
        File& file = files_[current_.at(name)];
        file.lasting.insert(file.lasting.end(), file.unsynced.begin(), file.unsynced.end());
        file.unsynced.clear();
    } else {
        return false;
    }
    return true;
}

void FileSystemModel::change(Entries& entries, const EntryChange& change)
{
    entries.erase(change.removed);
    if (!change.set.empty()) {
        entries[change.set] = change.file;
    }
}

std::set<std::string> FileSystemModel::contentsOf(const File& file)
{
    std::string lasting;
    for (const Write& write : file.lasting) {
        overwrite(lasting, write.offset, write.data);
    }
    std::set<std::string> contents = {lasting};
    for (const auto& [offset, data] : file.unsynced) {
        std::set<std::string> next = contents;  // the write is lost
        for (const std::string& before : contents) {
            // The first boundary is the start of the write: only zeros, or nothing.
            for (std::size_t kept = 0;; kept += sectorSize) {
                const std::string prefix = data.substr(0, kept);
                std::string cut = before;
                overwrite(cut, offset, prefix);
                next.insert(std::move(cut));
                std::string zeroed = before;
                overwrite(zeroed, offset, prefix + std::string(data.size() - prefix.size(), '\0'));
                next.insert(std::move(zeroed));
                if (kept >= data.size()) {
                    break;
                }
            }
        }
        contents = std::move(next);
    }
    return contents;
}

std::set<FileSystemModel::Entries> FileSystemModel::entriesAfterCut() const
{
    // Temporary files are counted once per destination, because their random names would make every image
    // different.
    const auto known = [](const Entries& entries) {
        Entries result;
        for (const auto& [name, file] : entries) {
            result[isTemporary(name) ? withoutIdentifier(name) : name] = isTemporary(name) ? 0 : file;
        }
        return result;
    };
    std::set<Entries> all = {lasting_};
    for (const EntryChange& entryChange : unsynced_) {
        std::set<Entries> next = all;
        for (Entries entries : all) {
            change(entries, entryChange);
            next.insert(std::move(entries));
        }
        all = std::move(next);
    }
    std::set<Entries> reduced;
    for (const Entries& entries : all) {
        reduced.insert(known(entries));
    }
    return reduced;
}

void FileSystemModel::addImages(const Entries& entries, std::set<DirectoryImage>& images) const
{
    std::set<DirectoryImage> built = {{}};
    for (const auto& [name, file] : entries) {
        const std::set<std::string> contents =
            isTemporary(name) ? std::set<std::string>{""} : contentsOf(files_[file]);
        std::set<DirectoryImage> next;
        for (const DirectoryImage& image : built) {
            for (const std::string& content : contents) {
                DirectoryImage longer = image;
                longer[name] = content;
                next.insert(std::move(longer));
            }
        }
        built = std::move(next);
    }
    images.merge(built);
}

std::set<DirectoryImage> FileSystemModel::imagesAfterCut() const
{
    std::set<DirectoryImage> images;
    for (const Entries& entries : entriesAfterCut()) {
        addImages(entries, images);
    }
    return images;
}

}  // namespace quillmere::test
