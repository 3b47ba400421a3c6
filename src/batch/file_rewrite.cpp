#include "batch/file_rewrite.h"

#include "batch/line_rewrite.h"
#include "files/file_error.h"
#include "files/file_replace.h"
#include "text/text_encoding.h"

namespace kelvor {

void rewriteFile(const std::string& path, const LineRewrite& rewrite, const std::string& temporary, const Step& step) {
    auto file = readForReplacement(path, step);
    const auto [text, encoding] = decode(std::move(file.bytes), step);
    std::string bytes;
    // Room alone costs nothing, and to move what is there already would take long.
    bytes.reserve(2 * text.size() + markOf(encoding).size());
    bytes += markOf(encoding);
    const auto take = [&, encoding = encoding](std::string_view lines) {
        if (!appendEncoded(bytes, lines, encoding)) {
            throw pathError(error_number::invalidProcedureCall, "The file's encoding lacks a character of the new text",
                            path);
        }
    };
    rewrite.apply(text, take, step);
    replaceFile(file, bytes, temporary, step);
}

}  // namespace kelvor
