// The register that takes the samples: everything that a core sees of the design, at one edge.
// FALLING takes at the falling edge and hands over at the next rising one, so that the rest of the core has
// one edge only and a whole period for its logic. `valid` is 0 until the first sample is there. A falling edge
// before the first rising one is none: in a simulation it is the clock that gets its first value.
module jex_input #(
    parameter WIDTH = 1,
    parameter FALLING = 0
) (
    input wire clk,
    input wire [WIDTH-1:0] in,
    output reg [WIDTH-1:0] sample,
    output reg valid
);

    initial begin
        sample = {WIDTH{1'b0}};
        valid = 1'b0;
    end

    generate
        if (FALLING != 0) begin : falling
            reg [WIDTH-1:0] taken = {WIDTH{1'b0}};
            reg taken_valid = 1'b0;
            reg has_risen = 1'b0;
            always @(negedge clk) begin
                taken <= in;
                taken_valid <= has_risen;
            end
            always @(posedge clk) begin
                sample <= taken;
                valid <= taken_valid;
                has_risen <= 1'b1;
            end
        end else begin : rising
            always @(posedge clk) begin
                sample <= in;
                valid <= 1'b1;
            end
        end
    endgenerate

endmodule
