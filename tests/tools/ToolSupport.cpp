#include "ToolSupport.h"

#include <cstdio>
#include <fstream>

#include <sys/wait.h>

#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include "TestSupport.h"

namespace {

// The answer schema of the tool, parsed once.
const valijson::Schema& answerSchema()
{
    static const valijson::Schema* schema = [] {
        std::ifstream in(std::string(QZC_SOURCE_DIR) + "/tools/qzcsvconv-answer.schema.json");
        const nlohmann::json document = nlohmann::json::parse(in);
        auto* parsed = new valijson::Schema;
        valijson::SchemaParser().populateSchema(valijson::adapters::NlohmannJsonAdapter(document), *parsed);
        return parsed;
    }();
    return *schema;
}

}  // namespace

std::string quoted(const std::string& text)
{
    std::string out = "'";
    for (char c : text)
        out += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return out + "'";
}

testing::AssertionResult matchesAnswerSchema(const nlohmann::json& answer)
{
    valijson::ValidationResults results;
    if (valijson::Validator(valijson::Validator::kStrongTypes)
            .validate(answerSchema(), valijson::adapters::NlohmannJsonAdapter(answer), &results))
        return testing::AssertionSuccess();
    testing::AssertionResult failure = testing::AssertionFailure();
    valijson::ValidationResults::Error error;
    while (results.popError(error)) {
        std::string context;
        for (const std::string& part : error.context)
            context += part;
        failure << context << ": " << error.description << "\n";
    }
    return failure << answer.dump(2);
}

ToolRun runTool(const std::string& arguments, const std::string& folder, const std::string& environment)
{
    TempDir scratch;
    const std::string command = (folder.empty() ? "" : "cd " + quoted(folder) + " && ") + environment + " " +
                                QZC_TOOL + " " + arguments + " 2>" + quoted(scratch.file("err"));
    ToolRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return run;
    char buffer[4096];
    for (size_t got; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        run.out.append(buffer, got);
    const int status = ::pclose(pipe);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.err = readBytes(scratch.file("err"));
    if (arguments.find("--json") != std::string::npos) {
        const nlohmann::json answer = run.json();
        EXPECT_FALSE(answer.is_discarded()) << command << " printed no JSON:\n" << run.out;
        if (!answer.is_discarded()) {
            EXPECT_TRUE(matchesAnswerSchema(answer)) << command;
        }
    }
    return run;
}
