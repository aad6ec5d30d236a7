// A model of the encrypted part, which must not stand in for it.
module cipher(input clk, input [15:0] plain, output [15:0] secret);
  reg [15:0] modelled;
endmodule
