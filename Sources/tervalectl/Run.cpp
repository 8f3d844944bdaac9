#include "tervalectl/Run.h"

#include "Base/Terminal.h"
#include "JSON/JSON.h"
#include "SMC/SMC.h"

namespace tervale {

namespace {

ExitStatus fail(std::ostream& errors, const std::string& line, ExitStatus status) {
    errors << complaint("tervalectl", line);
    return status;
}

} // namespace

ExitStatus perform(const ctl::CommandLine::Run& run, Context& context, std::ostream& errors) {
    try {
        const ExitStatus status = run.command->perform(run.parameters, context);
        context.out.flush();
        if (!context.out)
            return fail(errors, "The output cannot be written.", ExitStatus::refused);
        return status;
    } catch (const Failure& failure) {
        context.out.flush();
        return fail(errors, failure.line, failure.status);
    } catch (const SMCError& error) {
        return fail(errors, "The controller cannot be read: " + error.description,
                    ExitStatus::refused);
    } catch (const EncodingError& error) {
        return fail(errors, "That cannot be written as JSON: " + std::string(error.what()),
                    ExitStatus::refused);
    } catch (const std::exception& error) {
        return fail(errors, error.what(), ExitStatus::refused);
    }
}

} // namespace tervale
