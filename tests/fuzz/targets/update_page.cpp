// Property: a build number that a page announces is 0 or more and reads back from its own version text, and the last
// version on the page counts whatever stands before it.
#include "fuzz/target.h"
#include "update/build_number.h"
#include "update/update_check.h"

namespace {

void check(std::string_view page)
{
    const std::int32_t build = build_on_page(page);
    require(build == kNoBuild || build >= 0, "a build number is never negative");
    if (build != kNoBuild) {
        const std::string version = version_of_build(build);
        require(build_of_version(version) == build, "a build number reads back from its version");
        require(build_on_page("Version " + version) == build, "a page that says it says the same");
    }
    require(build_on_page(std::string(page) + "\nVersion 0.042 ") == 42, "the last version counts");
    require(build_on_page(std::string(page) + "\nVersion none ") == build,
            "a version without a number changes nothing");

    HttpReply reply;
    reply.body = page;
    for (const std::int32_t status : {0, 199, 400, 404, 503}) {
        reply.status = status;
        require(build_in_reply(reply) == kNoBuild, "a page of an error announces nothing");
    }
    reply.status = 200;
    require(build_in_reply(reply) == build, "a page announces its build");
}

const FuzzTarget target("update_page", check);

}  // namespace
