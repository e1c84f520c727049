#include "Projects/Score/MusicXml.h"

#include <zip.h>

#include <memory>

namespace Score {

namespace {

constexpr const char* kMimeType = "application/vnd.recordare.musicxml";
constexpr const char* kScoreName = "score.musicxml";
constexpr const char* kContainer = R"(<?xml version="1.0" encoding="UTF-8"?>
<container>
  <rootfiles>
    <rootfile full-path="score.musicxml" media-type="application/vnd.recordare.musicxml+xml"/>
  </rootfiles>
</container>
)";
// 1980-01-01, the oldest date that the container can hold: the same score gives the same bytes.
constexpr time_t kFixedTime = 315532800;

struct CloseArchive {
    void operator()(zip_t* archive) const { zip_discard(archive); }
};
struct FreeSource {
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};
using Archive = std::unique_ptr<zip_t, CloseArchive>;
using Source = std::unique_ptr<zip_source_t, FreeSource>;

bool AddFile(zip_t* archive, const char* name, std::string_view bytes, zip_int32_t compression) {
    zip_source_t* source = zip_source_buffer(archive, bytes.data(), bytes.size(), 0);
    const zip_int64_t index = source == nullptr ? -1 : zip_file_add(archive, name, source, ZIP_FL_ENC_UTF_8);
    if (index < 0) {
        zip_source_free(source);
        return false;
    }
    const auto place = static_cast<zip_uint64_t>(index);
    return zip_set_file_compression(archive, place, compression, 0) == 0 &&
           zip_file_set_mtime(archive, place, kFixedTime, 0) == 0;
}

std::string ReadAll(zip_source_t* source) {
    if (zip_source_open(source) != 0)
        return {};
    zip_source_seek(source, 0, SEEK_END);
    const zip_int64_t size = zip_source_tell(source);
    zip_source_seek(source, 0, SEEK_SET);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    const zip_int64_t count = zip_source_read(source, bytes.data(), bytes.size());
    zip_source_close(source);
    return count == size ? bytes : std::string();
}

} // namespace

std::string CompressedMusicXml(ScoreParts parts, std::string& why) {
    const std::string text = MusicXmlText(parts);
    zip_error_t error;
    zip_error_init(&error);
    const Source target(zip_source_buffer_create(nullptr, 0, 0, &error));
    Archive archive(target == nullptr ? nullptr : zip_open_from_source(target.get(), ZIP_TRUNCATE, &error));
    if (archive == nullptr) {
        why = zip_error_strerror(&error);
        zip_error_fini(&error);
        return {};
    }
    zip_source_keep(target.get());
    zip_error_fini(&error);
    // The type comes first and stays uncompressed, so that it can be told from the first bytes of the file.
    const bool good = AddFile(archive.get(), "mimetype", kMimeType, ZIP_CM_STORE) &&
                      AddFile(archive.get(), "META-INF/container.xml", kContainer, ZIP_CM_DEFLATE) &&
                      AddFile(archive.get(), kScoreName, text, ZIP_CM_DEFLATE) &&
                      zip_close(archive.get()) == 0;
    if (!good) {
        why = zip_strerror(archive.get());
        return {};
    }
    static_cast<void>(archive.release());
    std::string bytes = ReadAll(target.get());
    if (bytes.empty())
        why = "the container could not be read back";
    return bytes;
}

} // namespace Score
