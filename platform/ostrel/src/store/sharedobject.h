// One shared memory object, mapped whole: named ("/ostrel-..."), or anonymous for the private store of a process.
#ifndef OSTREL_STORE_SHAREDOBJECT_H
#define OSTREL_STORE_SHAREDOBJECT_H

#include <sys/types.h>

#include <cstddef>
#include <string>

// Where the system shows shared memory objects as files.
inline const std::string objectFolder = "/dev/shm";

// Who may use the objects of a store.
struct Access {
    mode_t mode = 0600;
    bool hasGroup = false;
    gid_t group = 0;
};

// True where that name leads to the object that is open there.
bool leadsTo(const std::string& name, int fd);

// Memory that could not be had; false where there is none missing.
struct Shortage {
    int error = 0;  // an errno
    size_t bytes = 0;

    explicit operator bool() const { return error != 0; }
};

// What people are told of it.
std::string describe(const Shortage& shortage);

// Functions with an int result give 0, or the errno of what failed; a failed one leaves the object empty.
class SharedObject {
public:
    SharedObject() = default;
    ~SharedObject();
    SharedObject(SharedObject&& other) noexcept;
    SharedObject& operator=(SharedObject&& other) noexcept;
    SharedObject(const SharedObject&) = delete;
    SharedObject& operator=(const SharedObject&) = delete;

    // A new object, all zero; its pages are not taken from the system before they are used.
    int create(const std::string& name, size_t size, const Access& access);
    int createAnonymous(const char* purpose, size_t size);

    // An object that is there. ENODATA where it has fewer than `size` bytes: a page behind the end must never be
    // mapped, for touching it would kill the process. EPERM where it belongs to somebody whose stores are not used.
    int open(const std::string& name, size_t size, bool writable);

    // Takes the pages of that range from the system now, so that a full memory is an error here and no signal later.
    Shortage reserve(size_t offset, size_t length) const;

    // Gives the pages of that range back to the system; they are zero from then on.
    void release(size_t offset, size_t length) const;

    // Gives the object another owner group and mode.
    int setAccess(const Access& access) const;

    // Maps a part of it once more, at that address in place of what is there.
    int mapOver(void* address, size_t offset, size_t length) const;

    // True where that name leads to this object.
    bool isNamed(const std::string& name) const { return leadsTo(name, m_fd); }

    char* data() const { return m_data; }
    size_t size() const { return m_size; }
    bool isWritable() const { return m_writable; }

private:
    int take(int fd, size_t size, bool writable);

    char* m_data = nullptr;
    size_t m_size = 0;
    int m_fd = -1;
    bool m_writable = false;
};

#endif
