// Interfaces are nodes of their own, ports of their type are none; blocks that stand alone; a primitive.
interface bus #(parameter W = 8) (input clk);
  logic [W-1:0] data;
  modport m(output data);
  modport s(input data);
endinterface
module from (bus.m port);
  assign port.data = 3;
endmodule
module to (bus.s ports[1:0]);
  wire w;
  assign w = ports[0].data[0];
endmodule
module top (input clk);
  bus b(clk);
  bus #(4) bs[1:0](clk);
  from f(b);
  to t(bs);
  if (1) begin wire unnamed; end
  generate begin wire alone; end begin wire second; end endgenerate
  if (0) begin : no wire never; end else if (1) begin : yes wire nested; end
  TS_JTAG jtag(clk);
endmodule

//= top:top clk
//= top/b:bus clk data[7:0]!
//= top/bs[1]:bus clk data[3:0]
//= top/bs[0]:bus clk data[3:0]
//= top/f:from
//= top/t:to w
//= top/genblk1:genblk1 unnamed
//= top/genblk2:genblk2 alone
//= top/genblk3:genblk3 second
//= top/yes:yes nested
//= top/jtag:TS_JTAG
//= TS_JTAG!
