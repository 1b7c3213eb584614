// All of QuillmereCore.
#pragma once

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/agent_snapshot.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/app_group.hpp>
#include <quillmere/widget/design.hpp>
#include <quillmere/widget/widget_family.hpp>
#include <quillmere/widget/widget_snapshot.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>
#include <quillmere/widget/widget_timeline_plan.hpp>
