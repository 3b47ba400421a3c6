#include "batch/file_rewrite.h"

#include "batch/line_rewrite.h"
#include "platform/error.h"
#include "platform/file_replace.h"
#include "platform/text_encoding.h"

namespace kelvor {

void rewriteFile(const std::string& path, const LineRewrite& rewrite, const std::string& temporary,
                 const std::function<void()>& step) {
    auto file = readForReplacement(path);
    step();
    auto decoded = decode(std::move(file.bytes));
    step();
    const auto text = rewrite.apply(std::move(decoded.text), step);
    const auto bytes = encode(text, decoded.encoding);
    if (!bytes) {
        throw Error(error_number::invalidProcedureCall,
                    "The file's encoding lacks a character of the new text: " + path);
    }
    step();
    replaceFile(file, *bytes, temporary);
}

}  // namespace kelvor
