// Nothing names this file: it is found in the library folder.
package bus_pkg;
  typedef enum logic [1:0] {IDLE, ADDR, DATA, RESP} phase_t;
  typedef struct packed {
    logic       write;
    logic [3:0] id;
    phase_t     phase;
  } head_t;
  typedef struct packed {
    head_t       head;
    logic [15:0] data;
  } request_t;
  function automatic logic [3:0] next_id(input logic [3:0] id);
    return id + 4'd1;
  endfunction
endpackage
