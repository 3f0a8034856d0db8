// A printer with the options that the paper floor asks about, small enough to be held in the head: four sizes
// of which the last is Custom, three colors with "Any" among them, five types, and two-sided printing.
#pragma once

#include "paper/paper_choice.h"
#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_builder.h"

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::test {

inline PaperOptionKeys paper_keys() {
    return {"PageSize", "NVMediaColor", "MediaType"};
}

/// Describes the paper options; more may be added before file() is asked for.
inline PpdBuilder& describe_paper(PpdBuilder& ppd) {
    return ppd.group("General")
        .attribute("Manufacturer", "", "NV")
        .option("PageSize", "A4", "Paper Size")
        .choice("A3")
        .choice("A4")
        .choice("Letter", "US Letter")
        .choice("Custom", "Own Size")
        .option("NVMediaColor", "White", "Paper Color")
        .choice("White")
        .choice("Blue", "Light Blue")
        .choice("Any")
        .option("MediaType", "Thick", "Paper Type")
        .choice("Stationary", "Plain")
        .choice("Thick", "Thick 1")
        .choice("TabbedPaper1", "Tab Stock 1")
        .choice("Transparency")
        .choice("TabbedPaper2", "Tab Stock 2")
        .option("Duplex", "None", "2-Sided Printing")
        .choice("None", "Off")
        .choice("DuplexNoTumble", "Long Edge")
        .choice("DuplexTumble", "Short Edge");
}

/// Compiles the constraints of a described PPD, with the list of its keywords in the process-wide place while
/// it lives.
class CompiledPpd {
  public:
    explicit CompiledPpd(PpdBuilder& ppd)
        : before_(std::exchange(nxPPDKeywordList(), option_keywords(ppd.file()))),
          index(std::make_shared<ConstraintIndex>()) {
        compile_constraints(ppd.file(), index.get(), nxPPDKeywordList());
    }
    ~CompiledPpd() { nxPPDKeywordList() = before_; }
    CompiledPpd(const CompiledPpd&) = delete;
    CompiledPpd& operator=(const CompiledPpd&) = delete;

  private:
    std::vector<std::string> before_;

  public:
    std::shared_ptr<ConstraintIndex> index;
};

/// "option:choice", or "" for no conflict.
inline std::string named(const ConflictingChoice& reason) {
    return reason.choice == nullptr
               ? std::string()
               : std::string(
                     ChoiceKey(field_text(reason.option->keyword), field_text(reason.choice->choice)).text());
}

} // namespace specialpages::test
