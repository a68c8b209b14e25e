// The catalogue of variables, read from a real store that a process of its own serves.
#include <unistd.h>

#include <QMap>
#include <QStringList>

#include "ostrel/storefixture.h"
#include "selection/variablemaplist.h"

namespace {

using Groups = QMap<QString, QStringList>;

class CatalogueTest : public StoreTest {
protected:
    static Groups read(QT_OSTREL_VAR_TYPE filter) {
        Groups groups;
        const VariableMapList list(&groups, filter, nullptr);
        return groups;
    }

    static std::string put(const ostrel_section& section, const std::string& label) {
        return "put " + std::to_string(section.area) + " " + std::to_string(section.kind) + " " + label;
    }
};

bool hasMembers(const ostrel_section& section) {
    return section.kind == STAT_TYPE || section.kind == COMP_TYPE || section.kind == PROP_TYPE ||
           section.kind == EMIS_TYPE;
}

bool isArray(const ostrel_section& section) {
    return section.kind >= REAL_ARRAY_TYPE && section.kind <= LOGI_ARRAY_TYPE;
}

TEST_F(CatalogueTest, EverySectionOfTheStoreIsListedUnderItsTitle) {
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    std::vector<std::string> commands;
    Groups expected;
    for (int i = 0; i < count; ++i) {
        const ostrel_section& section = sections[i];
        if (section.kind == ALIAS_TYPE)
            continue;
        const std::string label = "V" + std::to_string(i) + (hasMembers(section) ? "." : "");
        commands.push_back(isArray(section) ? "array " + std::to_string(section.kind) + " " + label + " 4"
                                            : put(section, label));
        expected[section.title] = QStringList(QString::fromStdString(label));
    }
    configure(commands);
    EXPECT_EQ(read(QT_OSTREL_ANY), expected);
    EXPECT_EQ(expected.size(), 33);
}

TEST_F(CatalogueTest, AnAliasStandsBehindTheVariablesOfItsTargetsGroup) {
    configure({"put 54 1 SPEED", "put 54 1 TORQUE", "alias N SPEED 1"});
    EXPECT_EQ(read(QT_OSTREL_REAL), Groups({{"General Use (real)", {"SPEED", "TORQUE", "N"}}}));
}

TEST_F(CatalogueTest, ARetiredVariableLeavesAGapInTheChannels) {
    configure({"put 6 1 T_OIL", "put 6 1 T_AIR", "put 6 1 T_FUEL"});
    configure({"put 6 1 T_OIL", "put 6 1 T_FUEL"});
    EXPECT_EQ(read(QT_OSTREL_IO_MEM), Groups({{"Analog Inputs", {"0", "2"}}}));
}

TEST_F(CatalogueTest, TheWalkLeavesNoAreaLinkedButTheAttributes) {
    configure({"put 54 1 SPEED"});
    const bool wasLinked = shrd_mem_in_use(AI_REAL_MEM) != 0;
    void* base = nullptr;
    ASSERT_EQ(link_to_memory(GU_REAL_MEM, &base), 0);
    read(QT_OSTREL_ANY);
    EXPECT_EQ(shrd_mem_in_use(AI_REAL_MEM) != 0, wasLinked);
    EXPECT_EQ(shrd_mem_in_use(GU_REAL_MEM), 1);
    EXPECT_EQ(shrd_mem_in_use(SYS_ATTR_MEM), 1);
}

TEST(CatalogueWithoutStore, EndsTheProcessWithStatusZero) {
    const std::string nobodys = newStoreName();
    EXPECT_EXIT(
        {
            ostrel_store_open(nobodys.c_str(), nullptr, nullptr, 0);
            dup2(STDERR_FILENO, STDOUT_FILENO);
            Groups groups;
            const VariableMapList list(&groups, QT_OSTREL_ANY, nullptr);
        },
        testing::ExitedWithCode(0), "^\n Ostrel must be running to use this command\n$");
}

}  // namespace
