// Constants that come through interfaces and whole arrays.
interface link(input logic c);
  logic en, both;
  logic [3:0] data;
  wire seen = en;
  assign data[0] = 1'b0;
  modport from(output en, data, both);
  modport to(input en, data, both);
endinterface
module source(input x, link.from l, input y);
  assign l.en = 1'b1; assign l.data[3:1] = {2'b0, x}; assign l.both = 1'b0;
endmodule
module sink(link.to l, output o);
  wire [3:0] d = l.data; assign o = l.en; wire b = l.both;
endmodule
module between(link l, input x); source s(x, l, x); endmodule
module swap(input [1:0] a [2], output [1:0] y [1:0], input [1:0] one [2:1]);
  assign y = a;
endmodule
module many(link.to ls[2:1], output [1:0] o);
  for (genvar i = 1; i <= 2; i++) begin : g sink s(ls[i], o[i - 1]); end
  wire second = ls[1].en;
endmodule
module top(input clk);
  link l(1'b0); between b(.x(clk), .l(l)); wire o; sink t(l, o);
  assign l.both = 1'b1;
  link free(clk); sink f(free, );
  for (genvar i = 0; i < 2; i++) begin : g
    link l(clk); assign l.en = i; wire w = l.en;
  end
  wire k = g[1].l.seen;
  wire [1:0] w [2], up [2], down [1:0], out [2];
  assign w[0] = 2'd0; assign w[1] = {clk, 1'b1};
  swap s(.a(w), .y(out), .one('{{clk, clk}, 2'd1}));
  assign up = '{2'd0, {2{clk}}};
  assign down = '{2'd0, {2{clk}}};
  link a[2](clk), z[4:3](.c(1'b1)); wire [1:0] half, mo; wire ze = z[4].en;
  assign a[0].en = 1'b1; assign a[1].en = clk; many m(.ls(a), .o(mo));
  source far[1:0](.x(clk), .l(z), .y(clk)); sink sz[2](.l(z), .o(half)), one(z[3], );
endmodule

//= top:top clk o! k! ze! w[0][1:0]! w[1][1:0]!0 up[0][1:0]! up[1][1:0] down[1][1:0]! down[0][1:0]
//=   out[0][1:0]! out[1][1:0]!0 half[1:0]! mo[1:0]!1
//= top/l:link c! en! both seen! data[3:0]!3!2!0
//= top/b:between x
//= top/b/s:source x y
//= top/t:sink o! b d[3:0]!3!2!0
//= top/free:link c en both seen data[3:0]!0
//= top/f:sink o b d[3:0]!0
//= top/g[0]:g w!
//= top/g[0]/l:link c en! both seen! data[3:0]!0
//= top/g[1]:g w!
//= top/g[1]/l:link c en! both seen! data[3:0]!0
//= top/s:swap a[0][1:0]! a[1][1:0]!0 y[1][1:0]! y[0][1:0]!0 one[2][1:0] one[1][1:0]!
//= top/a[0]:link c en! both seen! data[3:0]!0
//= top/a[1]:link c en both seen data[3:0]!0
//= top/z[4]:link c! en! both! seen! data[3:0]!3!2!0
//= top/z[3]:link c! en! both! seen! data[3:0]!3!2!0
//= top/m:many second o[1:0]!1
//= top/m/g[1]:g
//= top/m/g[1]/s:sink o b d[3:0]!0
//= top/m/g[2]:g
//= top/m/g[2]/s:sink o! b d[3:0]!0
//= top/far[1]:source x y
//= top/far[0]:source x y
//= top/sz[0]:sink o! b! d[3:0]!3!2!0
//= top/sz[1]:sink o! b! d[3:0]!3!2!0
//= top/one:sink o! b! d[3:0]!3!2!0
