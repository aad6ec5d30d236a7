// Nets that are tied to a constant, and pads of the whole design.
module leaf(input [1:0] d, input e, inout io, output o); wire via = e; assign o = d[0]; endmodule
module top(input clk, inout pad, inout [1:0] pads, output reg q = 1);
  localparam P = 1;
  supply0 gnd; wire declared = 1; wire assigned; assign assigned = P; wire through; assign through = gnd;
  wire floating; assign floating = 1'bz; wire contested = 0; assign contested = clk;
  wire [3:0] whole = 5; wire [7:4] part; assign part = {clk, 2'b01, clk}; wire [0:3] up; assign up[0:1] = 1;
  leaf u(.d({1'b0, clk}), .e(1'b1), .io(pad), .o());
  leaf v[1:0](.d(4'b1100), .e({clk, 1'b0}), .io(pad), .o(contested));
  always @(posedge clk) q <= 0;
  wire gw; if (1) begin : g wire gw; assign gw = 0; end
endmodule

//= top:top clk pad! q gnd! declared! assigned! through! floating contested gw
//=   pads[1:0]! whole[3:0]! part[7:4]!6!5 up[0:3]!0!1
//= top/u:leaf e! io o via! d[1:0]!1
//= top/v[1]:leaf e io o! via d[1:0]!
//= top/v[0]:leaf e! io o! via! d[1:0]!
//= top/g:g gw!
