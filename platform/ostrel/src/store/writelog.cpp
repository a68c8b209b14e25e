#include "store/writelog.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <ctime>

#include "ground/fieldtext.h"
#include "processidentity.h"
#include "store/arrayshape.h"
#include "store/currentstore.h"

namespace {

bool isText(uint16_t kind) {
    return kind == STRING_TYPE || kind == STRING_ARRAY_TYPE;
}

template <size_t size>
void describeValue(char (&to)[size], const char (&value)[writtenBytes], uint16_t kind) {
    if (isText(kind)) {
        setText(to, fieldText(value));
        return;
    }
    double number = 0;
    std::memcpy(&number, value, sizeof number);
    *std::to_chars(to, to + size - 1, number).ptr = '\0';
}

std::string indexesOf(const WriteNote& note) {
    if (note.element == 0)
        return "";
    std::string text;
    uint32_t rest = note.element - 1;
    for (size_t i = std::min<size_t>(note.dimensions, std::size(note.sizes)); i-- > 0;) {
        const uint32_t size = std::max<uint32_t>(note.sizes[i], 1);
        text = ":" + std::to_string(i == 0 ? rest : rest % size) + text;
        rest /= size;
    }
    return text;
}

}  // namespace

WrittenBytes writtenNumber(double value) {
    WrittenBytes bytes{};
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}

WrittenBytes writtenText(const char* text, size_t longest) {
    WrittenBytes bytes{};
    std::memcpy(bytes.data(), text, strnlen(text, std::min(longest, bytes.size())));
    return bytes;
}

void noteWrite(const WriteTarget& target, const WrittenBytes& former, const WrittenBytes& value, short refusal) {
    const ostrel_section& row = ostrel_sections(nullptr)[target.section];
    const char* record = target.store->record(target.section, target.index);
    WriteMemory* memory = target.store->writes();
    if (!record || !memory || !target.store->isWritable())
        return;
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const ProcessIdentity self = processIdentity();
    WriteNote note{now.tv_sec, now.tv_nsec, self.pid, self.uid, {}, {}, 0, 0, target.element, 0, {}, {}, {}};
    std::memcpy(note.program, self.name, sizeof note.program);
    std::memcpy(note.label, record + commonFields(row.kind).label, sizeof note.label);
    note.kind = static_cast<uint16_t>(row.kind);
    note.refusal = static_cast<uint16_t>(refusal);
    if (target.element != 0) {
        const ArrayShape shape = shapeInRecord(record, row.kind);
        note.dimensions = static_cast<uint16_t>(shape.dimensions);
        std::copy(shape.sizes.begin(), shape.sizes.end(), note.sizes);
    }
    std::memcpy(note.oldValue, former.data(), former.size());
    std::memcpy(note.newValue, value.data(), value.size());
    memory->writes.publish(std::bit_cast<WriteRing::Words>(note));
}

ostrel_write describeNote(uint64_t number, const WriteNote& note) {
    ostrel_write write{};
    write.number = number;
    write.time = {note.seconds, note.nanoseconds};
    write.pid = note.pid;
    write.uid = note.uid;
    setText(write.program, fieldText(note.program));
    setText(write.variable, fieldText(note.label) + indexesOf(note));
    write.kind = static_cast<SM_VARI_TYPE>(note.kind);
    write.refusal = static_cast<short>(note.refusal);
    describeValue(write.old_value, note.oldValue, note.kind);
    describeValue(write.new_value, note.newValue, note.kind);
    return write;
}

short int ostrel_next_write(uint64_t after, ostrel_write* write) {
    const Attachment* store = attachment();
    const WriteMemory* memory = store && write ? store->writes() : nullptr;
    if (!memory)
        return 1;
    const WriteRing& ring = memory->writes;
    const uint64_t taken = ring.taken.load(std::memory_order_acquire);
    for (uint64_t number = std::max(after, ring.oldest() - 1); number < taken;) {
        WriteRing::Words words;
        if (ring.read(++number, words) != EntryState::Whole)
            continue;
        const auto note = std::bit_cast<WriteNote>(words);
        *write = describeNote(number, note);
        setText(write->user, userName(note.uid));
        return 0;
    }
    return 1;
}
