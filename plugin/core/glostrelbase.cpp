#include "core/glostrelbase.h"

#include <ostrel/store.h>

#include <cstring>

#include "fabric/timermoderator.h"
#include "hostlink/formwriter.h"
#include "variables/recordtext.h"

GLOstrelBase::GLOstrelBase(QWidget* parent) : QGLWidget(parent) {
    ensureFormWriter();
    TimerModerator::forgetFormerOwner(this);
}

bool GLOstrelBase::okToRun() {
    return true;
}

void GLOstrelBase::closing(bool) {}

short int GLOstrelBase::configureSharedMem(char* label) {
    _status = find_variable(label, &_mem);
    if (_status != 0)
        return _status;
    _ptr = get_vrbl_adr(_mem);
    // Unlike OstrelBase: only arrays of numbers, and linked by the whole name.
    const bool numbers = _mem.vari_type == REAL_ARRAY_TYPE || _mem.vari_type == INT_ARRAY_TYPE;
    if (numbers && _ptr && !_mem.member_adr)
        _mem.member_adr = _MEMORY_LINK_SIZE(label, nullptr);
    if (const char* point = std::strchr(label, '.')) {
        _member_adr = _mem.member_adr;
        copyText(_varMember, QByteArray(point + 1));
    }
    return _status;
}
