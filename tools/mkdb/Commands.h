#pragma once

#include "Arguments.h"

namespace mkdb {

/// Does what the command line asks for. @return what was done, in Slovak
/// @throws CsvError, store::EngineError, std::runtime_error; then no file was made and no register
/// was changed
QString run(const Arguments& arguments);

} // namespace mkdb
