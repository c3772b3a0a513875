// Which libraries the program takes from beside itself while it sends requests over TLS: none.
#include "app/windows/controls.h"
#include "platform/windows/windows_path.h"
#include "windows_kit/journey.h"
#include "windows_kit/machine.h"
#include "windows_kit/planted_libraries.h"

#include <gtest/gtest.h>

namespace {

void publish(const RunningProgram& program)
{
    program.type(L"alice");
    program.press(kPublishButton);
    ASSERT_TRUE(program.shows(kStatusLine, L"Vaultry kept alice@brasslet.test."));
}

}  // namespace

TEST_F(Journey, TakesNoLibraryFromBesideTheProgram)
{
    site().set_state("plugin");
    save(kSettings);
    write_wallet(folder);
    LibraryNames names = bound_late();
    if (!is_wine()) {  // Wine looks for what its own libraries import beside the program first
        const RunningProgram first;
        publish(first);
        names.merge(names_of(loaded_libraries(first.process())));
    }
    const std::filesystem::path beside = wide_path(folder.path() + "/beside");
    plant(beside, names);
    const RunningProgram program(beside.wstring());
    publish(program);
    EXPECT_EQ(loaded_decoys(beside), LibraryNames());
}
