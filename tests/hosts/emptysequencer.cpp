// A test's tool: ALSA's sequencer as it is without other clients and events, for a host that does
// not start where the kernel has none. Loaded before the host's libraries, in place of the
// functions that get a sequencer's handle.
#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace {

constexpr int kClient = 128;  // the kernel's first number for programs
int nothing[2] = {-1, -1};    // a pipe into which nobody writes
int ports = 0;

}  // namespace

// They do not look at their arguments, which C's callers take away themselves.
#define RETURNING(value, function) \
  extern "C" int function() {      \
    return value;                  \
  }

extern "C" int snd_seq_open(void** sequencer) {
  if (nothing[0] < 0 && pipe(nothing) != 0) return -errno;
  *sequencer = nothing;  // any address
  return 0;
}
RETURNING(0, snd_seq_close)
RETURNING(kClient, snd_seq_client_id)
RETURNING(0, snd_seq_set_client_name)

RETURNING(ports++, snd_seq_create_simple_port)
RETURNING(0, snd_seq_delete_simple_port)
RETURNING(0, snd_seq_get_port_info)
RETURNING(0, snd_seq_set_port_info)
RETURNING(-ENOENT, snd_seq_subscribe_port)
RETURNING(-ENOENT, snd_seq_unsubscribe_port)
RETURNING(-ENOENT, snd_seq_query_port_subscribers)
RETURNING(-ENOENT, snd_seq_get_any_client_info)
RETURNING(-ENOENT, snd_seq_get_any_port_info)
RETURNING(-ENOENT, snd_seq_query_next_client)
RETURNING(-ENOENT, snd_seq_query_next_port)

RETURNING(0, snd_seq_alloc_queue)
RETURNING(0, snd_seq_free_queue)
RETURNING(0, snd_seq_control_queue)
RETURNING(0, snd_seq_get_queue_status)
RETURNING(0, snd_seq_get_queue_tempo)
RETURNING(0, snd_seq_set_queue_tempo)
RETURNING(0, snd_seq_set_queue_timer)

RETURNING(-EAGAIN, snd_seq_event_input)
RETURNING(0, snd_seq_event_input_pending)
RETURNING(0, snd_seq_event_output)
RETURNING(0, snd_seq_event_output_direct)
RETURNING(0, snd_seq_free_event)
RETURNING(0, snd_seq_drain_output)
RETURNING(0, snd_seq_drop_input)
RETURNING(0, snd_seq_drop_output)
RETURNING(0, snd_seq_remove_events)

RETURNING(1, snd_seq_poll_descriptors_count)
extern "C" int snd_seq_poll_descriptors(void*, pollfd* descriptors, unsigned room) {
  if (room < 1) return 0;
  *descriptors = {nothing[0], POLLIN, 0};
  return 1;
}
