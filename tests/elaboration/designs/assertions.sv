// Checks that Verilator cannot parse and synthesis ignores.
`define CHECK(name, what) \
  name : assert property (@(posedge clk) what) \
    else begin \
      $error("no %m"); \
    end
`define QUIET(what) cover property (what)
package checks;
  sequence twice(x); x ##1 x; endsequence
endpackage
module top (input clk, input rst, input [1:0] req, output logic [1:0] ack);
  default disable iff (rst);
  sequence s1; req[0] ##1 ack[0]; endsequence : s1
  property p1; @(posedge clk) req[0] |-> ##[1:3] ack[0]; endproperty
  let either(a, b) = a | b;
  checker once(c); assert property (@(posedge c) 1 ##1 1); endchecker
  covergroup group @(posedge clk); coverpoint req { bins low = {0}; } endgroup
  group g0 = new();
  a1: assert property (p1) else $error("; endproperty");
  `CHECK(a2, req[1] ##1 ack[1])
  `QUIET(@(posedge clk) req ##2 ack);
  if (1) begin : g
    a3: assume property (@(posedge clk) s1 |=> req[1]) begin $display("x"); end else if (req) $error; else ;
    logic kept; assign kept = req[0];
  end
  initial cover sequence (@(posedge clk) req ##1 ack);
  always_ff @(posedge clk) begin
    assert (req != 3); if (rst) ack <= '0; else ack <= req;
    if (req[0]) restrict property (s1); else ack <= 2'd1;
    g0.sample();
  end
  logic seen; always_ff @(posedge clk iff (req[0] or rst) or negedge rst) seen <= !rst;
  logic last; assign last = g.kept;
endmodule

//= top:top clk rst seen last req[1:0] ack[1:0] top/g:g kept
