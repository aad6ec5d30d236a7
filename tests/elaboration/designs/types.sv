// Enumerations, packed structs and unions, and the integer types.
package shapes;
  typedef enum logic [1:0] {IDLE, RUN, STOP} state_t;
  typedef struct packed { logic [7:0] data; state_t state; logic last; } beat_t;
  typedef union packed { logic [7:0] byte_; logic [0:7] bits; } both_t;
endpackage
module holder (input clk, input shapes::beat_t in, output shapes::beat_t out);
  shapes::state_t state;
  shapes::both_t both;
  enum logic [4:2] {LOW = 1, HIGH} offset;
  enum {A, B} whole_word;
  enum logic {OFF, ON} flag;
  struct packed { logic valid; logic [2:0] id; } local_;
  byte octet;
  shortint half;
  int word;
  longint twice;
  bit two_valued;
  logic [7:0] memory [0:63];
  always_ff @(posedge clk) begin
    out <= in;
    state <= in.state;
    memory[in.data[5:0]] <= in.data;
  end
endmodule
module top (input logic clk, input logic [10:0] raw, output logic [10:0] q);
  shapes::beat_t beat;
  assign beat = raw;
  holder h (.clk, .in(beat), .out(q));
endmodule

//= top:top clk raw[10:0] q[10:0] beat[10:0]
//= top/h:holder clk flag two_valued in[10:0] out[10:0] state[1:0] both[7:0] offset[4:2] whole_word[31:0]
//=   local_[3:0] octet[7:0] half[15:0] word[31:0] twice[63:0]
