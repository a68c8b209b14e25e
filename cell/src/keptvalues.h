// The values that outlive the cell: setpoints that are to stand at the next start as they stood at the end.
//
// They lie in a text file, a line each, in the order of the cell file:
//
//     ostrel-kept 1
//     real SPEED_SP rpm 3000
//     string TEST_NAME - Load%20step
//     real_array TRIM % 0 0.5 -1 0
//     end 3
//
// A text stands with %XX for blanks, percent signs and whatever is not printable ASCII; `-` means no units. The last
// line counts the others, so that a file that was cut is known. The file is never written in place: a kill at any
// moment leaves the old one or the new one.
#ifndef OSTREL_CELL_KEPTVALUES_H
#define OSTREL_CELL_KEPTVALUES_H

#include <memory>
#include <string>
#include <vector>

#include "cellmodel.h"
#include "storefill.h"

namespace ostrelcell {

// Puts the kept values into the model, in the place of those of the cell file. The remarks, a line each, say what could
// not be used. A broken file is moved to FILE.broken and used not even in part; a missing one is the first start.
std::vector<std::string> takeKeptValues(const std::string& file, CellModel& model);

// The text of the file for what the store holds now.
std::string keptText(const CellModel& model, const StoreContents& contents);

// Writes `text` to a temporary file beside `file`, has it reach the disk, and puts it in the place of `file`, which may
// be no link and nobody else's. Empty, or why it could not be done.
std::string replaceFile(const std::string& file, const std::string& text);

// Writes the file on a thread of its own, since a disk may take longer than a scan.
class KeptFile {
public:
    explicit KeptFile(const std::string& file);
    // Waits until all that was given has been written, three seconds at most.
    ~KeptFile();
    KeptFile(const KeptFile&) = delete;
    KeptFile& operator=(const KeptFile&) = delete;

    // Has the text written where it is another than the last one.
    void write(std::string text);

private:
    struct State;
    std::shared_ptr<State> m_state;
    std::string m_last;  // given by write()
};

}  // namespace ostrelcell

#endif
