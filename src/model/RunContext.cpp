#include "model/IRunContext.h"

#include "foundation/ErrorMessage.h"
#include "foundation/IUserInterface.h"
#include "model/CAddInProjects.h"

namespace scriv {

namespace {

IRunContext*& CurrentRunContextSlot()
{
    static IRunContext* context = nullptr;
    return context;
}

}  // namespace

IRunContext* CurrentRunContext()
{
    return CurrentRunContextSlot();
}

void SetCurrentRunContext(IRunContext* context)
{
    CurrentRunContextSlot() = context;
}

CAddInProject* CurrentAddInProject()
{
    IRunContext* context = CurrentRunContext();
    if (!context || !context->HasProjects())
        return nullptr;
    return context->Projects().CurrentProject();
}

CXmlMessages* CurrentMessages()
{
    IRunContext* context = CurrentRunContext();
    return context ? &context->Messages() : nullptr;
}

IHostAgent* CurrentHostAgent()
{
    IRunContext* context = CurrentRunContext();
    return context ? &context->Agent() : nullptr;
}

bool GenerationIsInterrupted()
{
    IRunContext* context = CurrentRunContext();
    return context && context->State().GenerationInterrupted;
}

void CheckGenerationInterrupt()
{
    IRunContext* context = CurrentRunContext();
    if (!context)
        return;
    CRunState& state = context->State();
    if (state.GenerationInterrupted)
        return;
    if (ErrorCounter() >= kErrorsThatStopARun) {
        state.GenerationInterrupted = true;
        SetErrorCounter(0);
    } else if (context->GenerationRunning() && UserInterface().CancelRequested()) {
        state.GenerationInterrupted = true;
    }
}

bool PollGenerationInterrupt()
{
    CheckGenerationInterrupt();
    return GenerationIsInterrupted();
}

}  // namespace scriv
