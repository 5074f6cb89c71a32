// The functions of the ALSA library that we use, found at run time. Tests hand in a table of their
// own.
#pragma once

#include <alsa/asoundlib.h>

namespace zoka {

/// One row a function.
#define ZOKA_ALSA_FUNCTIONS(ROW)           \
  ROW(snd_lib_error_set_handler)           \
  ROW(snd_seq_open)                        \
  ROW(snd_seq_close)                       \
  ROW(snd_seq_client_id)                   \
  ROW(snd_seq_set_client_name)             \
  ROW(snd_seq_set_client_pool_output)      \
  ROW(snd_seq_create_simple_port)          \
  ROW(snd_seq_alloc_queue)                 \
  ROW(snd_seq_control_queue)               \
  ROW(snd_seq_drain_output)                \
  ROW(snd_seq_connect_from)                \
  ROW(snd_seq_connect_to)                  \
  ROW(snd_seq_disconnect_to)               \
  ROW(snd_seq_event_output_direct)         \
  ROW(snd_seq_event_input)                 \
  ROW(snd_seq_poll_descriptors)            \
  ROW(snd_seq_client_info_malloc)          \
  ROW(snd_seq_client_info_free)            \
  ROW(snd_seq_client_info_set_client)      \
  ROW(snd_seq_client_info_get_client)      \
  ROW(snd_seq_client_info_get_name)        \
  ROW(snd_seq_query_next_client)           \
  ROW(snd_seq_get_any_client_info)         \
  ROW(snd_seq_port_info_malloc)            \
  ROW(snd_seq_port_info_free)              \
  ROW(snd_seq_port_info_set_client)        \
  ROW(snd_seq_port_info_set_port)          \
  ROW(snd_seq_port_info_get_port)          \
  ROW(snd_seq_port_info_get_name)          \
  ROW(snd_seq_port_info_get_capability)    \
  ROW(snd_seq_query_next_port)             \
  ROW(snd_seq_get_any_port_info)           \
  ROW(snd_seq_port_subscribe_malloc)       \
  ROW(snd_seq_port_subscribe_free)         \
  ROW(snd_seq_port_subscribe_set_sender)   \
  ROW(snd_seq_port_subscribe_set_dest)     \
  ROW(snd_seq_get_port_subscription)       \
  ROW(snd_seq_remove_events_malloc)        \
  ROW(snd_seq_remove_events_free)          \
  ROW(snd_seq_remove_events_set_condition) \
  ROW(snd_seq_remove_events_set_dest)      \
  ROW(snd_seq_remove_events)

/// The library's functions under their own names.
struct TAlsaApi {
#define ZOKA_MEMBER(name) decltype(&::name) name = nullptr;
  ZOKA_ALSA_FUNCTIONS(ZOKA_MEMBER)
#undef ZOKA_MEMBER
};

/// The library, loaded by the first call and made silent; null if this machine has none. Any
/// thread.
const TAlsaApi* alsa_api();

}  // namespace zoka
