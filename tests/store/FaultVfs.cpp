#include "store/FaultVfs.h"

#include <sqlite3.h>

#include <csignal>
#include <cstring>

namespace faults {

namespace {

using Fault = Plan::Fault;

struct State {
    Plan plan;
    int calls = 0;
    sqlite3_vfs vfs = {};
    sqlite3_io_methods methods = {};
    sqlite3_vfs* base = nullptr;
} state;

/// An open file of ours: the methods, then the file of the layer below.
struct File {
    sqlite3_file own;
    bool isDatabase;
    sqlite3_file* below() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

sqlite3_file* below(sqlite3_file* file) {
    return reinterpret_cast<File*>(file)->below();
}

bool strikes(Fault fault) {
    return state.plan.fault == fault && state.calls >= state.plan.at;
}

void countCall() {
    ++state.calls;
    if (strikes(Fault::Kill))
        std::raise(SIGKILL);
}

int writeBytes(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 offset) {
    if (state.plan.fault == Fault::Kill && state.calls + 1 >= state.plan.at)
        below(file)->pMethods->xWrite(below(file), bytes, count / 2, offset);
    countCall();
    const bool isDatabase = reinterpret_cast<File*>(file)->isDatabase;
    if (strikes(Fault::DiskFull) || (isDatabase && strikes(Fault::DatabaseFull)))
        return SQLITE_FULL;
    return below(file)->pMethods->xWrite(below(file), bytes, count, offset);
}

int readBytes(sqlite3_file* file, void* bytes, int count, sqlite3_int64 offset) {
    if (state.plan.fault == Fault::ReadFails)
        return SQLITE_IOERR_READ;
    return below(file)->pMethods->xRead(below(file), bytes, count, offset);
}

int truncate(sqlite3_file* file, sqlite3_int64 size) {
    countCall();
    return below(file)->pMethods->xTruncate(below(file), size);
}

int sync(sqlite3_file* file, int flags) {
    countCall();
    if (strikes(Fault::SyncFails))
        return SQLITE_IOERR_FSYNC;
    // What a killed process wrote outlives it without a sync.
    if (state.plan.fault == Fault::Kill)
        return SQLITE_OK;
    return below(file)->pMethods->xSync(below(file), flags);
}

int remove(sqlite3_vfs*, const char* name, int syncFolder) {
    countCall();
    return state.base->xDelete(state.base, name, syncFolder);
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    reinterpret_cast<File*>(file)->isDatabase = (flags & SQLITE_OPEN_MAIN_DB) != 0;
    const int code = state.base->xOpen(state.base, name, below(file), flags, outFlags);
    if (below(file)->pMethods != nullptr)
        file->pMethods = &state.methods;
    return code;
}

/// A method that only passes on.
template <auto Method, class... Arguments>
int passOn(sqlite3_file* file, Arguments... arguments) {
    return (below(file)->pMethods->*Method)(below(file), arguments...);
}

/// Version 1 leaves out shared memory and mapping.
void fillMethods() {
    using Methods = sqlite3_io_methods;
    Methods& m = state.methods;
    m.iVersion = 1;
    m.xClose = passOn<&Methods::xClose>;
    m.xRead = readBytes;
    m.xWrite = writeBytes;
    m.xTruncate = truncate;
    m.xSync = sync;
    m.xFileSize = passOn<&Methods::xFileSize>;
    m.xLock = passOn<&Methods::xLock>;
    m.xUnlock = passOn<&Methods::xUnlock>;
    m.xCheckReservedLock = passOn<&Methods::xCheckReservedLock>;
    m.xFileControl = passOn<&Methods::xFileControl>;
    m.xSectorSize = passOn<&Methods::xSectorSize>;
    m.xDeviceCharacteristics = passOn<&Methods::xDeviceCharacteristics>;
}

void registerLayer() {
    state.base = sqlite3_vfs_find(nullptr);
    fillMethods();
    state.vfs = *state.base;
    state.vfs.zName = "faults";
    state.vfs.szOsFile = static_cast<int>(sizeof(File)) + state.base->szOsFile;
    state.vfs.xOpen = open;
    state.vfs.xDelete = remove;
    sqlite3_vfs_register(&state.vfs, 1);
}

} // namespace

void install(const Plan& plan) {
    if (state.base == nullptr)
        registerLayer();
    state.plan = plan;
    state.calls = 0;
}

int callCount() {
    return state.calls;
}

void step() {
    countCall();
}

} // namespace faults
