// Small unpacked arrays are a net for each element, large ones are memories; loops are counted by no hardware.
module top (input clk, input [7:0] d, input [3:0] pair [1:0], output logic flags [0:40], output [1:0] q [2:3][1:0]);
  typedef enum logic [1:0] {IDLE, RUN} state_t;
  integer i, j, k, unused;
  int n;
  integer count, last, from;
  reg [7:0] memory [0:32];
  logic [7:0] stage [3], most [0:31];
  logic [1:0][3:0] down [4:3];
  state_t states [2];
  real reals [2];
  localparam int P [2] = '{1, 2};
  always @(posedge clk) begin
    for (i = 0; i < 8; i = i + 1) stage[2][i] <= d[7 - i];
    for (j = 0; j < 2; j = j + 1)
      for (n = 0; n < 2; n++) states[j] <= RUN;
    count <= count + 1;
    for (last = 0; last < 4; last = last + 1) memory[last] <= d;
    for (k = 0; k < 2; k = k + 1) begin memory[k] <= memory[from]; end
  end
  always_comb from = last;
  assign stage[0] = d;
  assign stage[1] = 8'h5;
  assign down[3][0] = 4'd0;
  assign down[4] = {4'd1, d[3:0]};
  assign q[2][0] = 2'b11;
  assign flags[2] = stage[1][0];
  sub u (.in(stage), .one(stage[1]), .bit0(down[3][0][1:0]));
  if (1) begin : g
    integer g_i; logic x [1:0];
    always_comb begin for (g_i = 0; g_i < 2; g_i = g_i + 1) x[g_i] = d[g_i]; end
  end
endmodule
module sub (input [7:0] in [3], input [7:0] one, input [1:0] bit0);
endmodule

//= top:top clk flags[0..1] flags[2]! flags[3..40] d[7:0] pair[1][3:0] pair[0][3:0] q[2][1][1:0]
//= q[2][0][1:0]! q[3][1][1:0] q[3][0][1:0] unused[31:0] count[31:0] last[31:0] from[31:0]
//= stage[0][7:0] stage[1][7:0]! stage[2][7:0] most[0..31][7:0]
//= down[4][7:0]!7!6!5!4 down[3][7:0]!3!2!1!0 states[0..1][1:0] top/u:sub in[0][7:0]
//= in[1][7:0]! in[2][7:0] one[7:0]! bit0[1:0]! top/g:g x[1] x[0]
