#include "cli/generate_command.h"

#include "app/save_file.h"
#include "cli/command_support.h"
#include "platform/native/native_file_store.h"
#include "platform/native/seeds.h"
#include "platform/native/terminal.h"

#include <filesystem>
#include <new>
#include <string>

namespace corvane {

ExitCode RunGenerate(const GenerateRequest& request) {
    std::error_code error;
    if (!request.force && std::filesystem::exists(request.outputFile, error))
        return Fail(ExistsMessage(request.outputFile));
    TerminalDialogs dialogs("corvane: ");
    ClockSeeds clockSeeds;
    FixedSeed userSeed(request.seed.value_or(0));
    Random& random = request.seed ? static_cast<Random&>(userSeed) : clockSeeds;
    PairRequest pairs = request.pairs;
    pairs.method = request.method == "frank"     ? PairMethod::Frank
                   : request.method == "clayton" ? PairMethod::Clayton
                                                 : PairMethod::Harlow;
    try {
        Dataset dataset;
        if (GeneratePairs(pairs, true, dataset, dialogs, random) != GenerationEnd::Written)
            return ExitFailed;
        NativeFileStore files;
        return EndOfSaving(request.outputFile,
                           SaveDataset(request.outputFile, dataset,
                                       request.force ? Existing::Replace : Existing::Keep, files));
    } catch (const std::bad_alloc&) {
        return Fail("there is not enough memory for " + std::to_string(pairs.N) + " pairs");
    }
}

} // namespace corvane
