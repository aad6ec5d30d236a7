// Pulse-width outputs; the register of a channel holds its duty.
module pwm_bank #(
    parameter CHANNELS = 2
) (
    input  wire                clk,
    input  wire                rst,
    input  wire                select,
    input  wire                write,
    input  wire [1:0]          address,
    input  wire [7:0]          wdata,
    output reg  [7:0]          rdata,
    output reg                 ack,
    output wire [CHANNELS-1:0] pwm
);

    wire [8*CHANNELS-1:0] duties;

    genvar c;
    generate
        for (c = 0; c < CHANNELS; c = c + 1) begin : channel
            reg [7:0] duty;

            assign duties[8*c +: 8] = duty;

            always @(posedge clk)
                if (rst)
                    duty <= 8'd0;
                else if (select && write && !ack && address == c)
                    duty <= wdata;

            pwm_generator u_generator (.clk(clk), .rst(rst), .duty(duty), .output_level(pwm[c]));
        end
    endgenerate

    always @(posedge clk) begin
        ack   <= select && !ack && !rst;
        rdata <= duties[8*address[0] +: 8];
    end

endmodule
