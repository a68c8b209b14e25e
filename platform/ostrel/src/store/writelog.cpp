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

uint64_t checkOf(uint64_t number, const WriteNoteWords& words) {
    uint64_t check = number * 0x9e3779b97f4a7c15;
    for (const uint64_t word : words) {
        check = (check ^ word) * 0xff51afd7ed558ccd;
        check ^= check >> 32;
    }
    return check;
}

void publishNote(WriteMemory& memory, const WriteNote& note) {
    const uint64_t number = memory.taken.fetch_add(1, std::memory_order_relaxed) + 1;
    WriteEntry& entry = memory.entries[(number - 1) % writeEntries];
    entry.sequence.store(2 * number - 1, std::memory_order_relaxed);
    // Released one by one: who sees a word of the new note sees the mark too.
    const auto words = std::bit_cast<WriteNoteWords>(note);
    for (size_t i = 0; i < words.size(); ++i)
        entry.words[i].store(words[i], std::memory_order_release);
    entry.check.store(checkOf(number, words), std::memory_order_release);
    entry.sequence.store(2 * number, std::memory_order_release);
}

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
    publishNote(*memory, note);
}

NoteState readNote(const WriteMemory& memory, uint64_t number, WriteNote& note) {
    const WriteEntry& entry = memory.entries[(number - 1) % writeEntries];
    const uint64_t before = entry.sequence.load(std::memory_order_acquire);
    if (before != 2 * number)
        return before < 2 * number ? NoteState::UnderWay : NoteState::Lost;
    WriteNoteWords words;
    for (size_t i = 0; i < words.size(); ++i)
        words[i] = entry.words[i].load(std::memory_order_acquire);
    const uint64_t check = entry.check.load(std::memory_order_acquire);
    if (entry.sequence.load(std::memory_order_relaxed) != before || check != checkOf(number, words))
        return NoteState::Lost;
    note = std::bit_cast<WriteNote>(words);
    return NoteState::Whole;
}

uint64_t oldestKept(const WriteMemory& memory) {
    const uint64_t taken = memory.taken.load(std::memory_order_acquire);
    return taken > writeEntries ? taken - writeEntries + 1 : 1;
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
    const uint64_t taken = memory->taken.load(std::memory_order_acquire);
    for (uint64_t number = std::max(after, oldestKept(*memory) - 1); number < taken;) {
        WriteNote note{};
        if (readNote(*memory, ++number, note) != NoteState::Whole)
            continue;
        *write = describeNote(number, note);
        setText(write->user, userName(note.uid));
        return 0;
    }
    return 1;
}
