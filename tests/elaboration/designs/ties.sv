// Nets that are tied to a constant, and pads of the whole design.
module leaf(input [1:0] d, input e, inout io, output o); wire via = e; assign o = d[0]; endmodule
module deep(output o); assign o = 1; endmodule
module below(output o, output [1:0] m, input c); deep d(o); assign m = {1'b0, c}; endmodule
module pass(input [1:0] i, output [1:0] o); wire [1:0] mid; only p(i[0], o[1]); only r(mid[1], o[0]); assign mid = i; endmodule
module only(input a, output y); assign y = a; endmodule
module alone(input x); wire hi, lo; only o[1:0](.a({1'b1, x}), .y({hi, lo})); endmodule
module top(input clk, inout pad, inout [1:0] pads, output reg q = 1);
  localparam P = 1;
  supply0 gnd; wire declared = 1; wire assigned; assign assigned = P; wire through; assign through = gnd;
  wire floating; assign floating = 1'bz; wire contested = 0; assign contested = clk;
  wire [3:0] whole = 5; wire [7:4] part; assign part = {clk, 2'b01, clk}; wire [0:3] up; assign up[0:1] = 1;
  leaf u(.d({1'b0, clk}), .e(1'b1), .io(pad), .o());
  leaf v[1:0](.d(4'b1100), .e({clk, 1'b0}), .io(pad), .o(contested));
  always @(posedge clk) q <= 0;
  wire gw; if (1) begin : g wire gw; assign gw = 0; end
  wire under; wire [2:0] mixed; wire [3:0] each;
  below b(.o(under), .m(mixed[2:1]), .c(clk));
  wire [1:0] out; wire back; wire [1:0] loop;
  pass p1(.i({clk, 1'b1}), .o(out));
  pass p2(.i({out[1], clk}), .o({back, loop[0]})); only p3(loop[1], loop[1]); only p4(clk, loop[0]);
  below bs[1:0](.o(), .m(each), .c(clk));
  wire [1:0] dealt; wire all; only pa[1:0](.a({clk, 1'b1}), .y(dealt)); deep da[1:0](all); alone al(clk);
endmodule

//= top:top clk pad! q gnd! declared! assigned! through! floating contested gw under! back all
//=   pads[1:0]! whole[3:0]! part[7:4]!6!5 up[0:3]!0!1 mixed[2:0]!2 each[3:0]!3!1
//=   out[1:0]!1 loop[1:0] dealt[1:0]!0
//= top/u:leaf e! io o via! d[1:0]!1
//= top/v[1]:leaf e io o! via d[1:0]!
//= top/v[0]:leaf e! io o! via! d[1:0]!
//= top/g:g gw!
//= top/b:below o! c m[1:0]!1
//= top/b/d:deep o!
//= top/p1:pass i[1:0]!0 o[1:0]!1 mid[1:0]!0
//= top/p1/p:only a! y!
//= top/p1/r:only a y
//= top/p2:pass i[1:0]!1 o[1:0]!0 mid[1:0]!1
//= top/p2/p:only a y
//= top/p2/r:only a! y!
//= top/p3:only a y
//= top/p4:only a y
//= top/bs[1]:below o! c m[1:0]!1
//= top/bs[1]/d:deep o!
//= top/bs[0]:below o! c m[1:0]!1
//= top/bs[0]/d:deep o!
//= top/pa[1]:only a y
//= top/pa[0]:only a! y!
//= top/da[1]:deep o!
//= top/da[0]:deep o!
//= top/al:alone x hi! lo
//= top/al/o[1]:only a! y!
//= top/al/o[0]:only a y
