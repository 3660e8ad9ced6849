#pragma once

#include <chrono>

namespace httplib {
class Server;
}

namespace scriv {
class EventLoop;
}

namespace scriv::studio {

class StudioFileAccess;
class StudioShell;

// The Help Editor's part of the studio's API. Requests reach the editor on the
// logic thread; those that may run long (the editor's commands, find and
// replace, the Word export) are started and answered 202, and the page
// follows them by their events.
//
//   GET  /api/editor/state                  the editor's state
//   GET  /api/editor/tree                   the contents tree: {"version", "items"}
//   POST /api/editor/select    {key}        a node selected: its page is shown
//   POST /api/editor/expand    {key, expanded}
//   POST /api/editor/key       {keyCode, shift}   a key on the tree
//   POST /api/editor/menu      {item}       an item of the tree's popup menu
//   POST /api/editor/rename    {text} | {cancel: true}
//   POST /api/editor/drop      {source, target}
//   POST /api/editor/hold                   the editor takes the page the request carries
//   POST /api/editor/save                   the page the request carries is saved
//   POST /api/editor/navigated {path}       the page editor followed a link
//   POST /api/editor/source    {html}       the source view's text: {"text"}
//   POST /api/editor/temp      {text}       "~temp.htp" beside the page: {"path"}
//   POST /api/editor/report    {report, action, row}
//   POST /api/editor/index-entries {action, text, selected}   the index entries dialog
//   POST /api/editor/command   {name}       202
//   POST /api/editor/find-replace {mode, findWhat, ...}   202
//   POST /api/editor/word-export  {target, savePictures}  202
// The requests above may carry "page": {"text", "source"}, the page being
// edited, which the editor holds as changed before it acts.
//
//   GET  /edit/<absolute path>              a page (or a file it uses) for the
//        page editor, on the studio's origin, its scripts disabled: the page
//        is served without its browser-help script, under a policy that
//        allows no script and a sandbox without scripts.
void InstallEditorRoutes(httplib::Server& http, EventLoop& loop, StudioShell& shell, StudioFileAccess& files,
    std::chrono::seconds logicTimeout);

}  // namespace scriv::studio
