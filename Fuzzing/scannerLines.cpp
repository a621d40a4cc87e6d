#include "Background/BackgroundScanner.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>

// Feeds a transcript to the scanner. However it is cut into blocks, whichever search runs, and whether it
// comes whole or grows step by step, the outcome is the same.

namespace {

using namespace mimkins;

/// The first bytes of a transcript in memory.
class GrowingFile final : public RandomAccessFiles {
public:
    explicit GrowingFile(std::string_view bytes) : bytes_(bytes) {}

    void growTo(std::size_t size) { size_ = std::min(size, bytes_.size()); }

    bool isWhole() const { return size_ == bytes_.size(); }

    std::optional<FileIdentity> look(const std::string&) const override {
        return FileIdentity{1, 1, size_, {}};
    }

    std::unique_ptr<RandomAccessFile> open(const std::string& path) const override {
        return std::make_unique<OpenFile>(bytes_, *look(path));
    }

private:
    class OpenFile final : public RandomAccessFile {
    public:
        OpenFile(std::string_view bytes, const FileIdentity& identity) : bytes_(bytes), identity_(identity) {}

        FileIdentity identity() const override { return identity_; }

        std::optional<std::size_t> read(std::uint64_t position, std::span<char> buffer) const override {
            const auto rest = bytes_.substr(std::min<std::size_t>(position, bytes_.size()));
            return rest.copy(buffer.data(), buffer.size());
        }

    private:
        std::string_view bytes_;
        FileIdentity identity_;
    };

    std::string_view bytes_;
    std::size_t size_ = 0;
};

Tally read(std::string_view bytes, std::size_t blockSize, std::size_t step, MarkerSearch search) {
    GrowingFile file(bytes);
    BackgroundScanner::Options options;
    options.blockSize = blockSize;
    options.search = search;
    BackgroundScanner scanner(file, options);
    const std::string path = "transcript";
    const Date now{1'795'248'000};
    for (std::size_t size = step;; size += step) {
        file.growTo(size);
        scanner.scan(path, Date{0}, now);
        if (file.isWhole()) {
            return scanner.tallies().at(path);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    return ::setenv("TZ", "Europe/Berlin", 1);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t whole = size + 1;
    const Tally expected = read(bytes, whole, whole, &findMarkersPortably);
    const std::size_t odd = 1 + size % 61;
    if (read(bytes, odd, whole, &findMarkersWithAvx2) != expected ||
        read(bytes, whole, 1 + size / 5, &findMarkersWithAvx2) != expected) {
        std::abort();
    }
    return 0;
}
