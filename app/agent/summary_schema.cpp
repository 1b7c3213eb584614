#include "agent/summary.hpp"

#include <nlohmann/json.hpp>

namespace quillmere::agent {
namespace {

// What the summary is, in the words of the standard; the descriptions are what a model knows of it.
constexpr const char* schemaText = R"json({
  "type": "object",
  "description": "The work in hand as of updated_at.",
  "additionalProperties": false,
  "required": ["block", "current_session", "interruptible", "next_session", "open_questions", "outcomes",
               "remaining_seconds", "schema_version", "sessions", "tasks", "updated_at", "workflow_state"],
  "properties": {
    "schema_version": {"const": 1},
    "workflow_state": {
      "description": "idle: nothing in hand, or a scheduled block that waits. blockPlanning, sessionPlanning: a plan is being written. focusing: a focus session runs or is paused. sessionReview, blockReview: a look back is being written. breaking: a break runs.",
      "enum": ["idle", "blockPlanning", "sessionPlanning", "focusing", "sessionReview", "breaking", "blockReview", "complete"]
    },
    "interruptible": {
      "type": "boolean",
      "description": "Whether the person may be interrupted: always, but for a focus session that is not paused."
    },
    "remaining_seconds": {
      "type": ["integer", "null"],
      "description": "Left on the running focus session or break at updated_at; negative in overtime, null when no timer runs."
    },
    "updated_at": {"$ref": "#/$defs/instant", "description": "The moment that the summary describes."},
    "block": {
      "description": "The block of work in hand, or scheduled.",
      "anyOf": [{"$ref": "#/$defs/block"}, {"type": "null"}]
    },
    "outcomes": {
      "description": "What the block should bring about.",
      "type": "array", "items": {"$ref": "#/$defs/outcome"}
    },
    "tasks": {
      "description": "One a session of the block, then the planned next one.",
      "type": "array", "items": {"$ref": "#/$defs/task"}
    },
    "sessions": {
      "description": "The focus sessions of the block, in order of starting.",
      "type": "array", "items": {"$ref": "#/$defs/session"}
    },
    "current_session": {
      "description": "The last of the sessions, ended or not.",
      "anyOf": [{"$ref": "#/$defs/session"}, {"type": "null"}]
    },
    "next_session": {
      "description": "What the person plans for the next session.",
      "anyOf": [{"$ref": "#/$defs/plan"}, {"type": "null"}]
    },
    "open_questions": {
      "description": "What waits for an answer, in order of asking.",
      "type": "array", "items": {"$ref": "#/$defs/openQuestion"}
    }
  },
  "allOf": [
    {
      "if": {"properties": {"workflow_state": {"const": "focusing"}}},
      "else": {"properties": {"interruptible": {"const": true}}}
    },
    {
      "if": {"properties": {"workflow_state": {"enum": ["focusing", "breaking"]}}},
      "else": {"properties": {"remaining_seconds": {"type": "null"}}}
    }
  ],
  "$defs": {
    "identifier": {
      "type": "string",
      "pattern": "^[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}$"
    },
    "instant": {
      "description": "UTC, whole seconds (RFC 3339).",
      "type": "string",
      "pattern": "^[0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z$"
    },
    "outcome": {
      "type": "object",
      "additionalProperties": false,
      "required": ["id", "title"],
      "properties": {"id": {"$ref": "#/$defs/identifier"}, "title": {"type": "string"}}
    },
    "task": {
      "type": "object",
      "additionalProperties": false,
      "required": ["first_action", "id", "status", "title"],
      "properties": {
        "id": {"$ref": "#/$defs/identifier", "description": "Of the session's plan."},
        "title": {"type": "string"},
        "first_action": {"type": "string"},
        "status": {"enum": ["planned", "current", "review_draft", "reviewed"]}
      }
    },
    "openQuestion": {
      "type": "object",
      "additionalProperties": false,
      "required": ["created_at", "id", "question"],
      "properties": {
        "id": {"$ref": "#/$defs/identifier"},
        "question": {"type": "string"},
        "created_at": {"$ref": "#/$defs/instant"},
        "answer": {"type": "string"}
      }
    },
    "plan": {
      "type": "object",
      "additionalProperties": false,
      "required": ["energy", "first_action", "hazards_mitigation", "id", "intended_outcome", "morale",
                   "nicu_framing"],
      "properties": {
        "id": {"$ref": "#/$defs/identifier"},
        "block_outcome_id": {
          "$ref": "#/$defs/identifier",
          "description": "The outcome of the block that it works towards."
        },
        "intended_outcome": {"type": "string"},
        "first_action": {"type": "string"},
        "hazards_mitigation": {"type": "string"},
        "nicu_framing": {"type": "string"},
        "energy": {"type": "integer", "description": "The person's own rating, 1 to 5."},
        "morale": {"type": "integer", "description": "The person's own rating, 1 to 5."}
      }
    },
    "session": {
      "type": "object",
      "additionalProperties": false,
      "required": ["accumulated_paused_seconds", "id", "number", "plan", "planned_duration_seconds", "started_at"],
      "properties": {
        "id": {"$ref": "#/$defs/identifier"},
        "number": {"type": "integer", "description": "Within the block, from 1."},
        "plan": {"$ref": "#/$defs/plan"},
        "started_at": {"$ref": "#/$defs/instant"},
        "planned_duration_seconds": {"type": "number"},
        "paused_at": {"$ref": "#/$defs/instant", "description": "Present exactly while it is paused."},
        "accumulated_paused_seconds": {"type": "number"},
        "ended_at": {"$ref": "#/$defs/instant"},
        "review": {"$ref": "#/$defs/review"}
      }
    },
    "review": {
      "type": "object",
      "additionalProperties": false,
      "required": ["completion", "distractions", "id", "improvement", "noteworthy_result"],
      "properties": {
        "id": {"$ref": "#/$defs/identifier"},
        "completion": {"enum": ["Yes", "Half", "No"]},
        "noteworthy_result": {"type": "string"},
        "distractions": {"type": "string"},
        "improvement": {"type": "string"}
      }
    },
    "reflection": {
      "type": "object",
      "additionalProperties": false,
      "required": ["bogged_down", "lessons", "normal_comparison", "output_produced", "went_well"],
      "properties": {
        "output_produced": {"type": "string"},
        "normal_comparison": {"type": "string"},
        "bogged_down": {"type": "string"},
        "went_well": {"type": "string"},
        "lessons": {"type": "string"}
      }
    },
    "block": {
      "type": "object",
      "additionalProperties": false,
      "required": ["break_duration_seconds", "context_notes", "created_at", "cycle_count", "done_test",
                   "focus_duration_seconds", "hazards", "id", "measurable_check", "outcomes", "sessions", "why_value"],
      "properties": {
        "id": {"$ref": "#/$defs/identifier"},
        "created_at": {"$ref": "#/$defs/instant"},
        "planned_start": {"$ref": "#/$defs/instant", "description": "Present when it is scheduled for later."},
        "scheduled_start_triggered_at": {"$ref": "#/$defs/instant"},
        "completed_at": {"$ref": "#/$defs/instant"},
        "focus_duration_seconds": {"type": "number"},
        "break_duration_seconds": {"type": "number"},
        "cycle_count": {"type": "integer", "description": "The planned number of focus sessions."},
        "outcomes": {"type": "array", "items": {"$ref": "#/$defs/outcome"}},
        "why_value": {"type": "string"},
        "done_test": {"type": "string"},
        "hazards": {"type": "string"},
        "measurable_check": {"type": "string"},
        "context_notes": {"type": "string"},
        "sessions": {"type": "array", "items": {"$ref": "#/$defs/session"}},
        "reflection": {"$ref": "#/$defs/reflection"}
      }
    }
  }
})json";

}  // namespace

const protocol::Json& summarySchema()
{
    static const protocol::Json schema = protocol::Json::parse(schemaText);
    return schema;
}

}  // namespace quillmere::agent
