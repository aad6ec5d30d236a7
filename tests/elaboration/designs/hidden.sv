// Names that stand for nothing that can be probed.
package p; logic shared; endpackage
module top #(parameter W = 4)(input clk, output reg [3:0] q);
  localparam L = 2; real r; string s; event e; reg [7:0] memory [0:63]; reg flags [0:32]; genvar g;
  function [3:0] f(input [3:0] a); reg [3:0] inner; integer i; begin inner = a; f = inner; end endfunction
  task t(input a); reg held; held = a; endtask
  always @(posedge clk) begin : named
    integer i; reg step;
    for (i = 0; i < W; i = i + 1) q[i] <= f(q) > 3;
    for (int k = 0; k < 2; k++) memory[k] <= q;
    begin reg deeper; deeper = step; t(deeper); end
  end
  for (g = 0; g < 0; g = g + 1) begin : none wire never; end
  for (genvar h = 0; h < 1; h = h + 1) begin : some wire shown; end
  if (1) begin : only localparam X = 1; end
endmodule

//= top:top clk q[3:0]
//= top/some[0]:some shown
