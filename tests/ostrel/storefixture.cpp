#include "ostrel/storefixture.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <thread>

#include "paths.h"

extern char** environ;

ServerProcess::ServerProcess() {
    int commands[2];
    int answers[2];
    if (pipe2(commands, O_CLOEXEC) != 0 || pipe2(answers, O_CLOEXEC) != 0)
        return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, commands[0], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, answers[1], STDOUT_FILENO);
    std::string program = paths::storeServer;
    char* arguments[] = {program.data(), nullptr};
    if (posix_spawn(&m_pid, program.c_str(), &actions, nullptr, arguments, environ) != 0)
        m_pid = 0;
    posix_spawn_file_actions_destroy(&actions);
    close(commands[0]);
    close(answers[1]);
    m_commands = fdopen(commands[1], "w");
    m_answers = fdopen(answers[0], "r");
}

ServerProcess::~ServerProcess() {
    fclose(m_commands);
    wait();
    fclose(m_answers);
}

void ServerProcess::send(const std::string& command) {
    if (m_pid == 0)
        return;
    fprintf(m_commands, "%s\n", command.c_str());
    fflush(m_commands);
}

std::string ServerProcess::tell(const std::string& command) {
    if (m_pid == 0)
        return "error no server process";
    send(command);
    std::string answer;
    for (int c = fgetc(m_answers); c != EOF && c != '\n'; c = fgetc(m_answers))
        answer += static_cast<char>(c);
    return answer;
}

void ServerProcess::killHard() {
    kill(m_pid, SIGKILL);
    wait();
}

void ServerProcess::wait() {
    if (m_pid > 0)
        waitpid(m_pid, nullptr, 0);
    m_pid = 0;
}

std::string newStoreName() {
    static int count = 0;
    return "test-" + std::to_string(getpid()) + "-" + std::to_string(++count);
}

std::vector<std::string> objectsOf(const std::string& store) {
    std::vector<std::string> found;
    const std::string header = "ostrel-" + store;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/shm")) {
        const std::string name = entry.path().filename();
        if (name == header || name.starts_with(header + "-") || name.starts_with(header + "."))
            found.push_back(name);
    }
    return found;
}

void removeObjectsOf(const std::string& store) {
    for (const std::string& object : objectsOf(store))
        std::filesystem::remove("/dev/shm/" + object);
}

bool comesTrue(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

void StoreTest::SetUp() {
    ASSERT_EQ(server.tell("open " + store), "ok 0");
    ASSERT_EQ(ostrel_store_open(store.c_str(), nullptr, nullptr, 0), 0);
}

void StoreTest::TearDown() {
    server.tell("close");
    removeObjectsOf(store);
}

void StoreTest::configure(const std::vector<std::string>& commands) {
    ASSERT_EQ(server.tell("begin -1"), "ok");
    for (const std::string& command : commands)
        ASSERT_EQ(server.tell(command).substr(0, 2), "ok") << command;
    ASSERT_EQ(server.tell("commit"), "ok");
}

int StoreTest::find(const std::string& label) {
    SHARED_MEMORY mem{};
    return find_variable(const_cast<char*>(label.c_str()), &mem);
}

SHARED_MEMORY StoreTest::handle(const std::string& label) {
    SHARED_MEMORY mem{};
    EXPECT_EQ(find_variable(const_cast<char*>(label.c_str()), &mem), 0) << label;
    return mem;
}
