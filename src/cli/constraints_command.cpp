#include "cli/commands.h"
#include "host/HostError.h"
#include "host/PpdFile.h"
#include "platform/foundation/atomic_file.h"
#include "ppd/CQuickXPPD.h"
#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "ppd/ppd_access.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <string_view>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;

ConstraintIndex compiled(const ppd_file_t* ppd) {
    ConstraintIndex index;
    const std::vector<std::string> keywords = option_keywords(ppd);
    compile_constraints(ppd, &index, keywords);
    return index;
}

void write_counts(const ppd_file_t& ppd, const ConstraintIndex& index, std::ostream& out) {
    out << "constraints  " << ppd.num_consts << '\n'
        << "entries      " << index.size() << '\n'
        << "keys         " << index.key_count() << '\n';
}

void write_entries(const ppd_file_t& ppd, const ConstraintIndex& index, std::ostream& out) {
    for (const auto& [key, place] : index) {
        const ConflictingChoice found = choice_at(ppd, place);
        out << key << '\t' << place.groupIndex << '\t' << place.optionIndex << '\t' << place.choiceIndex
            << '\t' << found.option->keyword << '\t' << found.choice->choice << '\n';
    }
}

/// The index is asked in the PPD's own spelling, so that a choice in another one would seem free of
/// conflicts.
void require_choice(ppd_file_t* ppd, const std::string& key) {
    const std::size_t colon = key.find(':');
    if (colon == std::string::npos || colon == 0 || colon + 1 == key.size()) {
        throw HostError(ErrorCode::usage, "--conflicts " + key, "expected OPTION:CHOICE");
    }
    const std::string option = key.substr(0, colon);
    const std::vector<std::string> options = option_keywords(ppd);
    const std::int32_t count = GetPPDKeyOptionCount(ppd, option.c_str());
    if (std::find(options.begin(), options.end(), option) == options.end() ||
        GetChoiceIndex(ppd, option.c_str(), key.substr(colon + 1).c_str()) == count) {
        throw HostError(ErrorCode::usage, "--conflicts " + key,
                        "expected an option and a choice of the PPD, in its own upper and lower case");
    }
}

void write_conflicts(ppd_file_t* ppd, const ConstraintIndex& index, const std::string& key,
                     std::ostream& out) {
    require_choice(ppd, key);
    for (const ConflictingChoice& found : conflicting_choices(ppd, &index, key)) {
        out << found.option->keyword << ':' << found.choice->choice << '\t'
            << (found.choice->marked != 0 ? "marked" : "not marked") << '\n';
    }
}

void write_cache(ppd_file_t* ppd, const ConstraintsOptions& options, const std::string& cache) {
    ConstraintIndex scratch;
    const std::vector<std::string> keywords = option_keywords(ppd);
    const std::array<x_PDEConstr, 2> sections{{{&options.section, &keywords}, {}}};
    CQuickXPPD writer(ppd, &scratch, sections.data(), options.ppd);
    std::ostringstream bytes;
    bytes << writer;
    if (const std::string error = platform::write_file_atomically(cache, bytes.str()); !error.empty()) {
        throw HostError(ErrorCode::other, cache, error);
    }
}

} // namespace

void constraints_command(const ConstraintsOptions& options, Streams streams) {
    const host::PpdFile file(options.ppd);
    if (options.cache) {
        write_cache(file.get(), options, *options.cache);
        return;
    }
    const ConstraintIndex index = compiled(file.get());
    if (options.dump) {
        write_entries(*file.get(), index, streams.out);
    } else if (options.conflicts) {
        write_conflicts(file.get(), index, *options.conflicts, streams.out);
    } else {
        write_counts(*file.get(), index, streams.out);
    }
}

} // namespace specialpages::cli
