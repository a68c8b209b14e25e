#include "celltest.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

bool eventually(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

std::string uniqueStoreName() {
    static std::atomic<int> number{0};
    return "celltest-" + std::to_string(getpid()) + "-" + std::to_string(number++);
}

CellTest::CellTest() {
    std::string folder = (std::filesystem::temp_directory_path() / "celltest-XXXXXX").string();
    m_folder = mkdtemp(folder.data());
}

CellTest::~CellTest() {
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

std::string CellTest::write(const std::string& text) {
    const bool complete = text.find("[cell]") != std::string::npos;
    std::ofstream(path("cell.toml")) << (complete ? "" : "[cell]\nname = \"test\"\nscan_ms = 10\n") << text;
    return path("cell.toml");
}

SHARED_MEMORY handleOf(const std::string& name) {
    SHARED_MEMORY mem{};
    std::string label = name;
    EXPECT_EQ(find_variable(label.data(), &mem), 0) << name;
    return mem;
}

bool exists(const std::string& name) {
    SHARED_MEMORY mem{};
    std::string label = name;
    return find_variable(label.data(), &mem) == 0;
}

double number(const std::string& name) {
    const SHARED_MEMORY mem = handleOf(name);
    void* address = get_vrbl_adr(mem);
    if (address == nullptr)
        return std::nan("");
    switch (mem.vari_type) {
        case REAL_TYPE:
            return static_cast<REAL_VARIABLE*>(address)->value;
        case INT_TYPE:
            return static_cast<INTEGER_VARIABLE*>(address)->value;
        case LOGI_TYPE:
            return static_cast<LOGICAL_VARIABLE*>(address)->value;
        case STAT_TYPE:
            return static_cast<STAT_VARIABLE*>(address)->stat[mem.stat_member].value;
        case COMP_TYPE:
            return static_cast<COMP_VARIABLE*>(address)->fraction[mem.comp_member].value;
        case PROP_TYPE:
            return static_cast<PROP_VARIABLE*>(address)->properties[mem.prop_member].value;
        case EMIS_TYPE:
            return static_cast<EMIS_VARIABLE*>(address)->emission[mem.emis_member].value;
        case REAL_ARRAY_TYPE:
            return static_cast<REAL_ARRAY_MEMBER*>(mem.member_adr)->value;
        case INT_ARRAY_TYPE:
            return static_cast<INTEGER_ARRAY_MEMBER*>(mem.member_adr)->value;
        case LOGI_ARRAY_TYPE:
            return static_cast<LOGICAL_ARRAY_MEMBER*>(mem.member_adr)->value;
        default:
            ADD_FAILURE() << name << " is no number";
            return std::nan("");
    }
}

std::string text(const std::string& name) {
    const SHARED_MEMORY mem = handleOf(name);
    if (mem.vari_type == STRING_ARRAY_TYPE)
        return static_cast<STRING_ARRAY_MEMBER*>(mem.member_adr)->value;
    return record<STRING_VARIABLE>(name).value;
}
