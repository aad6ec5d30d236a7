// `let`, which Verilator cannot parse, in expressions of the design, and instances of checkers.
package p;
  parameter int LEAST = 1;
  let over(x, y = LEAST) = x > y;
  let bit0(untyped x) = x[0];
  checker far(logic c); endchecker
endpackage
module sub(input [3:0] a, input b, output o);
  import p::*;
  if (1) begin : g
    let pick(logic [3:0] s, i = 0) = s[i];
    wire w = pick(a, .i(2));
    wire z = pick(.i(1),
                  .s(a));
    wire [1:0] one = {2{over(a, .y(4'd3))}};
  end
  wire pick;
  assign pick = g.w;
  let tie = 1'b0;
  wire t; assign t = tie;
  wire m = over(a) & bit0(a) || over(over(a[3:1], 2),
      b);
  far f1(b), f2[1:0](b);
  assign o = p::bit0(a);
endmodule
module lost(input a, output o);
`ifdef NONE
  let choice(x) = x;
`else
  let choice(x) = !x;
`endif
  assign o = choice(a);
endmodule
module top import p::bit0; (input clk, input [3:0] d, output logic [3:0] y, output z);
  sub u(.a(d), .b(p::bit0(d)), .o(z));
  wire k = bit0(d);
  lost l(.a(k), .o());
  bind sub : u p::far f4(.c(a[0]));
  bind sub p::far f5(o);
  always_ff @(posedge clk) begin
    let next = y + 1;
    y <= next;
    p::far f6(clk);
  end
endmodule

//= top:top clk z k d[3:0] y[3:0]
//= top/u:sub b o pick t! m a[3:0]
//= top/u/g:g w z one[1:0]
//= top/l:lost
