// An open PPD, owned. It is parsed by libcups; this is the one place of the host that calls libcups' PPD
// functions. Choices are marked here and nowhere else.
#pragma once

#include "host/job_options.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct ppd_file_s;

namespace specialpages::host {

/// The size of a sheet in points (1/72 inch).
struct SheetSize {
    double width = 0;
    double length = 0;
};

class PpdFile {
  public:
    /// Opens the file and marks every option's default. HostError (input) with file, line and libcups' reason
    /// when libcups refuses it.
    explicit PpdFile(const std::filesystem::path& file);
    /// The same of a text in memory; `name` stands for the file in messages.
    static PpdFile parse(std::string_view bytes, const std::string& name);

    /// What the file is called in messages.
    const std::string& name() const { return name_; }
    /// Valid as long as this object, also after it was moved.
    ppd_file_s* get() const { return ppd_.get(); }

    /// Marks one choice, keywords being compared without regard to case, as libcups does. "Custom.WxH" (with
    /// an optional unit, as in "Custom.210x148mm"; points without) marks a size of one's own where the PPD
    /// has one, within its limits. Whether the PPD's constraints forbid the choice is not asked. HostError
    /// (usage), and nothing marked, for an unknown option or choice; for a choice it lists those that there
    /// are.
    void mark(const std::string& option, const std::string& choice);
    /// mark() of a text "OPTION=CHOICE"; HostError (usage) when it is not of that form.
    void mark(const std::string& assignment);

    /// Marks what the options of a job choose, as the print server will: choices of the PPD by their own
    /// names, and those that go by a name of the server's (media, sides, output-bin). Other options, and
    /// choices that there are not, mark nothing.
    void mark_job_options(const JobOptions& options);

    /// The sheet of the marked PageSize; empty optional when no size is marked. The choice "Custom" without
    /// measures has the measures that were marked last, none at first.
    std::optional<SheetSize> page_size() const;
    /// The PPD's model name; empty when it has none.
    std::string model_name() const;
    /// Whether some attribute's name begins with `prefix`.
    bool has_attribute(std::string_view prefix) const;

  private:
    struct Close {
        void operator()(ppd_file_s* ppd) const;
    };
    PpdFile(ppd_file_s* ppd, std::string name);

    std::unique_ptr<ppd_file_s, Close> ppd_;
    std::string name_;
};

} // namespace specialpages::host
