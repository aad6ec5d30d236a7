// Packed arrays and other types that Yosys does not read.
module top (input clk);
  typedef enum logic [1:0] {IDLE, RUN} state_t;
  typedef struct packed { logic [7:0] a; state_t s; } rec_t;
  typedef logic [15:8] high_t;
  typedef logic bit_t;
  high_t high;
  rec_t [1:0] recs;
  logic [0:3][7:0] packs;
  bit_t [7:4] bits;
  time stamp;
  wire signed [-1:-4] below;
endmodule

//= top:top clk high[15:8] recs[19:0] packs[31:0] bits[7:4] stamp[63:0] below[-1:-4]
